// Makes failing checks show text as text. Every test includes this first.
#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& texts, std::ostream* stream) {
    *stream << "{ \"" << texts.join(QLatin1String("\", \"")).toStdString() << "\" }";
}

// Types on a widget as a person does, with the Shift key where a character needs it.
#pragma once

#include <QString>
#include <QTest>

namespace vellum::test {

// Enter and Tab stand in `text` as "\n" and "\t".
inline void TypeText(QWidget& widget, const QString& text) {
    for (const QChar character : text) {
        if (character == u'\n') {
            QTest::keyClick(&widget, Qt::Key_Return);
        } else if (character == u'\t') {
            QTest::keyClick(&widget, Qt::Key_Tab);
        } else {
            const bool shifted = character.isUpper() || QStringView(u"<>\"&%|!").contains(character);
            QTest::sendKeyEvent(QTest::Click, &widget, static_cast<Qt::Key>(character.toUpper().unicode()),
                                QString(character), shifted ? Qt::ShiftModifier : Qt::NoModifier);
        }
    }
}

}  // namespace vellum::test

// What is to stand in a caching file, taken from the windows as plain values, so that a worker thread can do the rest.
#pragma once

#include "files/text_file.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace vellum {

class Document;
class Workbench;

struct CachingJob {
    QString path = {};                  // where the file goes, or beside it when one of `documents` stands there
    QString text = {};                  // with any line ends; the file gets CR LF
    TextFormat format = {};             // of the document: the file takes its encoding
    QStringList documents = {};         // the captions of all open documents
    std::optional<int> scrollTop = {};  // puts the script that scrolls there after the text
};

// The text of `document`, for the caching file that goes with it.
[[nodiscard]] CachingJob DocumentJob(Workbench& workbench, const Document& document);

// A text for "caching.htm" in the website directory.
[[nodiscard]] CachingJob WebsiteJob(Workbench& workbench, const QString& text, const TextFormat& format);

}  // namespace vellum

// All that the writing of a caching file needs, as plain values, so that a worker thread can do it.
#pragma once

#include "files/text_file.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace vellum {

class Document;
class Workbench;

struct CachingJob {
    QString path = {};                  // of the file, which goes beside it when one of `documents` has it
    QString substitute = {};            // the path that the file gets where that one can't be written
    QString text = {};                  // with any line ends; the file gets CR LF
    TextFormat format = {};             // of the document; the file gets its encoding
    QStringList documents = {};         // the captions of all open documents
    std::optional<int> scrollTop = {};  // in CSS pixels; adds the script that scrolls there
    QString page = {};                  // the document's own file; empty when the text is that of no file
};

// The text of `document`, for the caching file that goes with it.
[[nodiscard]] CachingJob DocumentJob(Workbench& workbench, const Document& document);

// A text for "caching.htm" in the website directory.
[[nodiscard]] CachingJob WebsiteJob(Workbench& workbench, const QString& text, const TextFormat& format);

}  // namespace vellum

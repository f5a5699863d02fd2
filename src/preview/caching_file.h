// The caching file: its name, its place, and the script that follows the document's text in it.
#pragma once

#include <QString>
#include <QStringList>

namespace vellum {

// "caching" and the end of the caption: its last five characters when they begin with a dot, else its last four,
// without a "/". "caching.htm" for a caption without any dot.
[[nodiscard]] QString CachingFileName(const QString& caption);

// The caching file beside the document, or in the website directory for a document that was never saved (its caption
// starts with "New"). A caption without a directory gives a bare name.
[[nodiscard]] QString CachingPath(const QString& caption, const QString& websiteDirectory);

// `path`, the path of a caching file, or "caching-preview.htm", "caching-preview2.htm" and so on beside it when one of
// the documents is that file: a preview never overwrites a document. Looks at the disk for symbolic links, which may
// take long; none of the files needs to exist.
[[nodiscard]] QString PathBesideDocuments(const QString& path, const QStringList& documents);

// The text, CR LF, and a script that scrolls to `scrollTop` CSS pixels once the page is loaded.
[[nodiscard]] QString WithScrollScript(const QString& text, int scrollTop);

// True for files that get the script when the preview tab asks for them.
[[nodiscard]] bool TakesScrollScript(const QString& fileName);

}  // namespace vellum

// The caching file: what a document's preview is called, where it stands, and what is put after the document's text.
#pragma once

#include <QString>
#include <QStringList>

namespace vellum {

// "caching" and the extension of the document: its last five characters when these begin with a dot, else its last
// four. Whatever else stands there is taken too, only not a "/". "caching.htm" for a caption without any dot.
[[nodiscard]] QString CachingFileName(const QString& caption);

// Beside the document, or in the website directory when it was never saved (its caption starts with "New"). A caption
// without a directory gives a name without one.
[[nodiscard]] QString CachingPath(const QString& caption, const QString& websiteDirectory);

// `path`, a caching file, or another name beside it ("caching-preview.htm", "caching-preview2.htm") when one of the
// documents is that file, also by way of symbolic links: a preview never overwrites what it shows. Looks at the disk,
// which may take its time; none of the files needs to exist.
[[nodiscard]] QString PathBesideDocuments(const QString& path, const QStringList& documents);

// The text, CR LF, and a script that scrolls to `scrollTop` CSS pixels as soon as the page stands.
[[nodiscard]] QString WithScrollScript(const QString& text, int scrollTop);

// True for files that the preview tab puts the script into.
[[nodiscard]] bool TakesScrollScript(const QString& fileName);

}  // namespace vellum

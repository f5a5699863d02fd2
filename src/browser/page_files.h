// Which files of this machine the pages of the preview may have.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QUrl>

#include <optional>

namespace vellum {

// What the rule depends on. All paths are absolute and without symbolic links.
struct PageSurroundings {
    QByteArrayList homes = {};    // the home folders of the person
    QByteArrayList folders = {};  // those of the pages that the program shows
};

// True for a file that pages may have: none of a system folder, and none that is hidden in a home folder. A page that
// the program shows has all that lies in its own folder and below it, and what is hidden together with it. `file` is an
// absolute path without symbolic links.
[[nodiscard]] bool MayBeShown(const QByteArray& file, const PageSurroundings& around);

// The path in a local address, byte for byte. Empty for any other address, for one with a host, and for one that spells
// a separator inside a name.
[[nodiscard]] QByteArray LocalPath(const QUrl& address);

// Lets pages have what lies in a folder for as long as it lives. The folder needn't exist.
class ShownFolder {
public:
    explicit ShownFolder(QByteArray path);
    ~ShownFolder();
    ShownFolder(const ShownFolder&) = delete;
    ShownFolder& operator=(const ShownFolder&) = delete;

private:
    QByteArray path_;
};

// True when pages may have the file at `path`, links followed first, and it is a regular file: a pipe or a device
// could hold up the engine for ever, and a folder would be listed. Looks at the disk, which may take long.
[[nodiscard]] bool IsForPages(const QByteArray& path);

// The same without waiting for a folder that doesn't answer: what can't be looked at within half a second is
// refused, and so is everything in that folder until it answers.
[[nodiscard]] bool IsForPagesNow(const QByteArray& path);

// The bytes of a file that pages may have; empty for any other, and for one of more than 64 MB. May take long.
[[nodiscard]] std::optional<QByteArray> ReadForPages(const QByteArray& path);

}  // namespace vellum

#include "preview/file_readers.h"

#include "files/file_descriptor.h"

#include <cerrno>
#include <optional>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace vellum {
namespace {

constexpr auto accessList = "system.posix_acl_access";
constexpr mode_t ownBits = 0600;

bool IsMissing(int number) {
    return number == ENODATA || number == ENOTSUP;
}

// The status of a page whose mode tells all about its readers.
std::optional<struct stat> StatusOf(const QByteArray& page, const QByteArray& file) {
    struct stat status = {};
    if (!page.startsWith('/') || FolderOf(page) != FolderOf(file)) return std::nullopt;
    if (::lstat(page.constData(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    if (::lgetxattr(page.constData(), accessList, nullptr, 0) >= 0 || !IsMissing(errno)) return std::nullopt;
    return status;
}

// The bits of the page for its group and for others, as a file of this group can have them: whoever isn't of the page's
// group is one of the others there, and the other way round.
mode_t SharedBits(mode_t page, bool sameGroup) {
    if (sameGroup) return page & 066;
    const mode_t both = (page >> 3) & page & 06;
    return both << 3 | both;
}

}  // namespace

bool TakeReadersOf(const QByteArray& page, int descriptor, const QByteArray& file) {
    // A list that the folder gives to new files names readers of its own.
    if (::fremovexattr(descriptor, accessList) != 0 && !IsMissing(errno)) return false;
    struct stat own = {};
    if (::fstat(descriptor, &own) != 0) return false;
    mode_t mode = ownBits;
    if (const auto status = StatusOf(page, file)) {
        const bool sameGroup = own.st_gid == status->st_gid || ::fchown(descriptor, uid_t(-1), status->st_gid) == 0;
        mode |= SharedBits(status->st_mode, sameGroup);
    }
    if (::fchmod(descriptor, mode) == 0) return true;
    // File systems without modes, as of many removable disks, refuse this even to the owner.
    return (errno == EPERM || errno == ENOTSUP) && (own.st_uid == ::geteuid() || ::geteuid() == 0);
}

}  // namespace vellum

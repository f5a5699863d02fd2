// The kind of a file, and its properties as text. Unless a function says otherwise, the name alone decides on the kind:
// an extension counts anywhere in it, in capitals or not, so that "page.html.bak" is a page too.
#pragma once

#include <QString>
#include <QStringList>

namespace vellum {

// Those of `types` (".gif") that the name contains, in their order. No name contains an empty type.
[[nodiscard]] QStringList MatchingTypes(const QString& name, const QStringList& types);

// True for sounds that a page can play: ".AU", ".WAV", ".MID", ".RMI".
[[nodiscard]] bool IsPageSound(const QString& name);
// True for the caching files that the preview writes, which nobody should edit.
[[nodiscard]] bool IsCachingName(const QString& name);
// True for pictures that the properties show: ".jpg", ".bmp", ".gif".
[[nodiscard]] bool IsWebImage(const QString& name);
// True for names that end in ".mid", ".wav" or ".avi", which "Play File" plays.
[[nodiscard]] bool IsPlayable(const QString& name);

// The bits of a file's attributes.
enum FileAttribute { ReadOnlyAttribute = 1, HiddenAttribute = 2, SystemAttribute = 4, ArchiveAttribute = 32 };

// A name that begins with a dot is hidden.
[[nodiscard]] int AttributeBits(const QString& name, bool writable);
// The names of the bits, each with a blank after it, separated by ", ". Read-only has no name.
[[nodiscard]] QString AttributeText(int bits);

[[nodiscard]] QString SizeText(qint64 bytes);

}  // namespace vellum

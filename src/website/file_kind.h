// What kind of file a name stands for, and how a file's properties read. Kinds are told by the name alone: a part of it
// anywhere counts, in capitals or not, so that "page.html.bak" is a page too.
#pragma once

#include <QString>
#include <QStringList>

namespace vellum {

// Those of `types` (".gif") that stand in the name, in their order. An empty type stands in no name.
[[nodiscard]] QStringList MatchingTypes(const QString& name, const QStringList& types);

// True for sounds that a page can play: ".AU", ".WAV", ".MID", ".RMI".
[[nodiscard]] bool IsPageSound(const QString& name);
// True for the copies that the preview writes, which nobody should edit.
[[nodiscard]] bool IsCachingName(const QString& name);
// True for pictures that the properties show: ".jpg", ".bmp", ".gif".
[[nodiscard]] bool IsWebImage(const QString& name);
// True for names that end in ".mid", ".wav" or ".avi", which "Play File" plays.
[[nodiscard]] bool IsPlayable(const QString& name);

// The bits of a file's attributes.
enum FileAttribute { ReadOnlyAttribute = 1, HiddenAttribute = 2, SystemAttribute = 4, ArchiveAttribute = 32 };

// A leading dot hides a file.
[[nodiscard]] int AttributeBits(const QString& name, bool writable);
// The names of the bits, each with a blank behind it, split by ", ". Read-only has no name.
[[nodiscard]] QString AttributeText(int bits);

[[nodiscard]] QString SizeText(qint64 bytes);

}  // namespace vellum

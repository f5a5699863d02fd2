// Text files to text and back: bytes live only here. A file that was read and not edited is written back byte for byte.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace vellum {

enum class LineEnd : unsigned char { None, CrLf, Lf, Cr };

// How a file spells its text. A new document is UTF-8 with CR LF.
struct TextFormat {
    QByteArray encoding = "UTF-8";  // "UTF-8", "UTF-16LE", "UTF-16BE", "windows-1252" or a name that ICU opens
    bool byteOrderMark = false;
    LineEnd lineEnd = LineEnd::CrLf;  // the most frequent one; the one of every line unless lineEnds is filled
    std::vector<LineEnd> lineEnds;    // one a line, only for a file of mixed line ends; the last line has None

    [[nodiscard]] QString Description()
        const;  // for a person: "UTF-8", "UTF-16 LE, LF", "Windows-1252, mixed line ends"
};

struct LoadedText {
    QString text;  // every line end is one "\n"
    TextFormat format;
};

// Bytes to text. Never fails: what no stricter reading fits is Windows-1252, which every byte sequence fits. A reading
// is taken only when its text gives the same bytes again: a byte order mark first, then the encoding that the first
// 1024 bytes declare, then UTF-8, then Windows-1252.
[[nodiscard]] LoadedText DecodeText(const QByteArray& bytes);

// Text ("\n" at line ends) to bytes. `keepMixed`: give each line the end it came with, which needs the line count
// to be that of format.lineEnds; otherwise every line gets format.lineEnd. A text that the encoding can't hold is
// encoded as UTF-8 and format.encoding says so afterwards; UTF-8 turns what is no text at all, half a surrogate pair,
// into the replacement character. The bytes decode to the same text: where the document's own declaration would have
// them misread, they become UTF-8 and then get a byte order mark.
// `format` is that of the returned bytes afterwards, so hand over a copy when they may not reach the document's file.
[[nodiscard]] QByteArray EncodeText(QStringView text, TextFormat& format, bool keepMixed);

// Reads a whole file of less than a gigabyte. Empty on failure, with a sentence for a person in *error when given.
// Folders, pipes and devices are refused. A file whose writing was cut off is restored first, see below.
[[nodiscard]] std::optional<LoadedText> ReadTextFile(const QString& path, QString* error = nullptr);

// Writes bytes so that at every moment either the old or the new file is whole on disk. Follows symbolic links, keeps
// mode and owner; a file with several hard links or another owner is written in place with a copy beside it until the
// write is complete. A file that we may not write is refused, also where its folder would let us replace it. False on
// failure, with a sentence in *error when given; the old file is then whole.
[[nodiscard]] bool WriteFileSafely(const QString& path, const QByteArray& bytes, QString* error = nullptr);

// Where a write in place keeps the copy of the old content: beside the file, or in $XDG_STATE_HOME/vellumcraft/backup
// when the folder takes no new file. Names the copy that exists, else the one that would be made.
[[nodiscard]] QString BackupPathFor(const QString& path);

// Puts the old content back into a file whose write in place was cut off, and removes the copy. True when that was
// needed and done. A file cut off begins with a NUL: that byte goes in first and the real one last, so any other
// beginning means a whole file, be it the old, the new or one that somebody saved since; then only the copy goes. A
// file that another process is writing right now is left alone.
bool RestoreInterruptedWrite(const QString& path);

}  // namespace vellum

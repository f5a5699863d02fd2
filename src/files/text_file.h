// Text files to text and back: bytes live only here.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace vellum {

enum class LineEnd : unsigned char { CrLf = 1, Lf, Cr };  // the numbers stand in recovery copies

// How a file spells its text. A new document is UTF-8 with CR LF.
struct TextFormat {
    QByteArray encoding = "UTF-8";  // "UTF-8", "UTF-16LE", "UTF-16BE", "windows-1252" or a name that ICU opens
    bool byteOrderMark = false;
    LineEnd lineEnd = LineEnd::CrLf;  // the most frequent one
    bool mixedLineEnds = false;       // the file has others, too

    [[nodiscard]] QString Description()
        const;  // for a person: "UTF-8", "UTF-16 LE, LF", "Windows-1252, mixed line ends"
};

struct LoadedText {
    QString text;  // every line end is one "\n"
    TextFormat format;
    QByteArray bytes;  // what the text was made of
};

// Bytes to text. Never fails: what no stricter reading fits is Windows-1252, which every byte sequence fits. A reading
// is taken only when its text gives the same bytes again: a byte order mark first, then the encoding that the first
// 1024 bytes declare, then UTF-8, then Windows-1252.
[[nodiscard]] LoadedText DecodeText(const QByteArray& bytes);

// Text ("\n" at line ends) to bytes; every line gets format.lineEnd. A text that the encoding can't hold is encoded as
// UTF-8 and format.encoding says so afterwards; UTF-8 turns what is no text at all, half a surrogate pair, into the
// replacement character. The bytes decode to the same text: where the document's own declaration would have them
// misread, they become UTF-8 and then get a byte order mark.
// `format` is that of the returned bytes afterwards, so hand over a copy when they may not reach the document's file.
[[nodiscard]] QByteArray EncodeText(QStringView text, TextFormat& format);

// Reads a whole file of less than a gigabyte. Empty on failure, with a sentence for a person in *error when given.
// Folders, pipes and devices are refused. A file whose writing in place was cut off is completed first.
[[nodiscard]] std::optional<LoadedText> ReadTextFile(const QString& path, QString* error = nullptr);

}  // namespace vellum

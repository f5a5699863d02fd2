// Text files to text and back: bytes live only here.
#pragma once

#include "files/line_ends.h"
#include "values/text_range.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace vellum {

// How a file spells its text. A new document is UTF-8 with CR LF.
struct TextFormat {
    QByteArray encoding = "UTF-8";  // "UTF-8", "UTF-16LE", "UTF-16BE", "windows-1252" or another that EncodeUnits knows
    bool byteOrderMark = false;
    LineEnd lineEnd = LineEnd::CrLf;  // what new lines get: the most frequent one
    bool mixedLineEnds = false;       // the file has others, too
    bool holdsBytes = false;          // UTF-8: halves of surrogate pairs, U+DC80 to U+DCFF, are bytes of the file
    bool badBytes = false;            // there are some now
    QByteArray oddByte;               // UTF-16: the last byte of a file of odd length
    QByteArray passedOver;            // the encoding that the file declares although it isn't in it; mostly empty

    // For a person: "UTF-8", "UTF-16 LE, LF", "Windows-1252, mixed line ends".
    [[nodiscard]] QString Description() const;
    [[nodiscard]] QString EncodingName() const;  // its first word or two
};

struct LoadedText {
    QString text;  // every line end is one "\n"
    TextFormat format;
    std::vector<OtherLineEnd> otherLineEnds;  // those that are not format.lineEnd, ascending
    QByteArray bytes;                         // what the text was made of

    // For another place than the file's own document: bytes that are no text are replacement characters.
    [[nodiscard]] QString ReadableText() const;
};

// Bytes to text. Never fails: what no stricter reading fits is Windows-1252, which every byte sequence fits. A reading
// is taken only when its text gives the same bytes again: a byte order mark first, then UTF-16 that is seen without
// one, the encoding that the first 1024 bytes declare, UTF-8, Windows-1252. UTF-8 by its mark, by its declaration or by
// more good sequences than bad bytes may have bad bytes.
[[nodiscard]] LoadedText DecodeText(const QByteArray& bytes);

struct EncodedText {
    std::optional<QByteArray> bytes;  // empty when the text doesn't fit
    TextFormat format;                // of the bytes; without them, the one that the text doesn't fit
};

// Text ("\n" at line ends) to bytes that decode to the same text. Every line gets format.lineEnd but for `others`,
// which ascend. Where the text declares another encoding than the format's, so that it would be misread, it goes into
// that one. UTF-8 and UTF-16 get a byte order mark where they would not be known without. UTF-8 turns what is no text
// at all, half a surrogate pair that stands for no byte, into the replacement character.
//
// A text doesn't fit when the encoding can't hold it (see FindMisfits) or when nothing in it says any more which one it
// is.
[[nodiscard]] EncodedText EncodeText(QStringView text, std::span<const OtherLineEnd> others, const TextFormat& format);

// The same as UTF-8, which every text fits; with the mark when the format has one or the bytes would be misread.
[[nodiscard]] EncodedText EncodeAsUtf8(QStringView text, std::span<const OtherLineEnd> others, TextFormat format);

// Reads a whole file of less than a gigabyte. Empty on failure, with a sentence for a person in *error when given.
// Folders, pipes and devices are refused. A file whose writing in place was cut off is completed first.
[[nodiscard]] std::optional<LoadedText> ReadTextFile(const QString& path, QString* error = nullptr);

}  // namespace vellum

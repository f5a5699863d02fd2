#include "import/rtf_writer.h"

#include <QHash>

#include <algorithm>

namespace vellum {
namespace {

class RtfWriter {
public:
    explicit RtfWriter(const RichText& rich) : rich_(rich) {}

    QByteArray Write();

private:
    void WriteFonts();
    void WriteColors();
    void BeginParagraph();
    void BeginFormat(const RichFormat& format);
    void WriteText(QStringView text);
    void WriteCharacter(char16_t character);
    void WriteWord(const char* word, int number) { rtf_ += word + QByteArray::number(number); }

    const RichText& rich_;
    QByteArray rtf_;
    QHash<ColorNumber, int> colors_{{0, 0}};  // their numbers in the file; black is the reader's own
    std::size_t line_ = 0;
};

QByteArray RtfWriter::Write() {
    rtf_.reserve(rich_.text.size() + 64 * static_cast<qsizetype>(rich_.paragraphs.size()) + 1024);
    rtf_ += R"({\rtf1\ansi\ansicpg1252\uc1\deff0)";
    WriteFonts();
    WriteColors();
    BeginParagraph();
    for (std::size_t i = 0; i < rich_.runs.size(); ++i) {
        const RichRun& run = rich_.runs[i];
        const qsizetype end = i + 1 < rich_.runs.size() ? rich_.runs[i + 1].offset : rich_.text.size();
        BeginFormat(run.format);
        WriteText(QStringView(rich_.text).sliced(run.offset, end - run.offset));
    }
    rtf_ += "\\par\r\n}\r\n";
    return std::move(rtf_);
}

// The font after the text's own is that of the bullets.
void RtfWriter::WriteFonts() {
    rtf_ += "{\\fonttbl";
    for (int number = 0; number < rich_.fonts.size(); ++number) {
        WriteWord("{\\f", number);
        rtf_ += "\\fnil ";
        for (const QChar character : rich_.fonts.at(number)) {
            if (character == u';') {
                rtf_ += "\\'3b";  // a plain one would end the name
            } else {
                WriteCharacter(character.unicode());
            }
        }
        rtf_ += ";}";
    }
    if (std::ranges::any_of(rich_.paragraphs, &RichParagraph::bullet)) {
        WriteWord("{\\f", static_cast<int>(rich_.fonts.size()));
        rtf_ += R"(\fnil\fcharset2 Symbol;})";
    }
    rtf_ += "}\r\n";
}

void RtfWriter::WriteColors() {
    rtf_ += "{\\colortbl;";
    for (const RichRun& run : rich_.runs) {
        const ColorNumber color = run.format.color;
        if (colors_.contains(color)) continue;
        colors_.insert(color, static_cast<int>(colors_.size()));
        WriteWord("\\red", static_cast<int>(color & 0xFFU));
        WriteWord("\\green", static_cast<int>((color >> 8U) & 0xFFU));
        WriteWord("\\blue", static_cast<int>((color >> 16U) & 0xFFU));
        rtf_ += ';';
    }
    rtf_ += "}\r\n";
}

// The text of a bullet is for readers that know none.
void RtfWriter::BeginParagraph() {
    const RichParagraph& paragraph = rich_.paragraphs.at(line_);
    rtf_ += "\\pard";
    if (paragraph.alignment == RichAlignment::Right) rtf_ += "\\qr";
    if (paragraph.alignment == RichAlignment::Center) rtf_ += "\\qc";
    if (paragraph.bullet) {
        const QByteArray font = "f" + QByteArray::number(rich_.fonts.size());
        rtf_ += R"({\pntext\)" + font + R"(\'b7\tab}{\*\pn\pnlvlblt\pn)" + font + R"({\pntxtb\'b7}}\fi-200\li200)";
    }
    rtf_ += ' ';
}

void RtfWriter::BeginFormat(const RichFormat& format) {
    WriteWord("\\plain\\f", format.font);
    WriteWord("\\fs", format.halfPoints);
    if (format.color != 0) WriteWord("\\cf", colors_.value(format.color));
    if (format.bold) rtf_ += "\\b";
    if (format.italic) rtf_ += "\\i";
    if (format.underline) rtf_ += "\\ul";
    if (format.strike) rtf_ += "\\strike";
    rtf_ += ' ';
}

void RtfWriter::WriteText(QStringView text) {
    for (const QChar character : text) {
        if (character == u'\n') {
            rtf_ += "\\par\r\n";
            ++line_;
            BeginParagraph();
        } else if (character != u'\r') {
            WriteCharacter(character.unicode());
        }
    }
}

void RtfWriter::WriteCharacter(char16_t character) {
    switch (character) {
        case u'\t':
            rtf_ += "\\tab ";
            return;
        case u'\u00A0':
            rtf_ += "\\~";
            return;
        case u'\\':
        case u'{':
        case u'}':
            rtf_ += '\\';
            break;
        default:
            break;
    }
    if (character < 0x7F) {
        rtf_ += static_cast<char>(character);
    } else {
        WriteWord("\\u", static_cast<qint16>(character));
        rtf_ += '?';
    }
}

}  // namespace

QByteArray WriteRtf(const RichText& rich) {
    return RtfWriter(rich).Write();
}

}  // namespace vellum

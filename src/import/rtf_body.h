// The text of an RTF file as it grows: paragraphs, the markers of lists, rows of tables as lines with tabs.
#pragma once

#include "import/rich_text.h"
#include "import/rtf_words.h"

namespace vellum {

struct RtfParagraph {
    RichAlignment alignment = RichAlignment::Left;
    RtfNumbering numbering = RtfNumbering::None;
    bool inTable = false;
};

// A line is ended in the format and as part of the paragraph that it is in then.
class RtfBody {
public:
    [[nodiscard]] std::uint16_t FontNumber(const QString& name) { return builder_.FontNumber(name); }

    void AddText(QStringView text, const RichFormat& format);

    // What a list writes before the next text of the paragraph. A bullet is the paragraph's, a number is text.
    void AddMarker(QStringView text, const RichFormat& format);
    [[nodiscard]] bool HasMarker() const { return !marker_.isEmpty(); }
    void PlaceMarker(const RtfParagraph& paragraph);

    void EndParagraph(const RtfParagraph& paragraph, const RichFormat& format);
    // Ends a line within a paragraph.
    void EndLine(const RtfParagraph& paragraph, const RichFormat& format);
    // Ends the paragraph unless there is nothing in its line yet.
    void FinishLine(const RtfParagraph& paragraph, const RichFormat& format);
    void EndCell(const RtfParagraph& paragraph);
    void EndRow(const RtfParagraph& paragraph, const RichFormat& format);

    // Hands the text out, with its last line ended.
    [[nodiscard]] RichText Take(RtfParagraph paragraph, const RichFormat& format);

private:
    void WriteGap(const RichFormat& format);

    RichTextBuilder builder_;
    QString marker_;
    RichFormat markerFormat_;
    bool isItem_ = false;       // the line began with a bullet
    bool isLaterLine_ = false;  // of its paragraph
    int openCells_ = 0;         // ended, but the next text of the row has yet to come
    bool isLaterText_ = false;  // of its cell, after the end of a paragraph there
};

}  // namespace vellum

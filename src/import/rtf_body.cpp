#include "import/rtf_body.h"

#include <algorithm>
#include <utility>

namespace vellum {
namespace {

// Of a list that the file says nothing about: whether a marker is a bullet, which has no letters or digits but for an
// "o" that stands for a circle.
bool LooksLikeBullet(QStringView marker) {
    return marker == u"o" || std::ranges::none_of(marker, [](QChar each) { return each.isLetterOrNumber(); });
}

}  // namespace

void RtfBody::AddText(QStringView text, const RichFormat& format) {
    if (text.isEmpty()) return;
    WriteGap(format);
    builder_.AddText(text, format);
}

void RtfBody::AddMarker(QStringView text, const RichFormat& format) {
    constexpr qsizetype longest = 256;
    if (marker_.isEmpty()) markerFormat_ = format;
    if (marker_.size() + text.size() <= longest) marker_ += text;
}

// In a table a bullet would be that of the whole row. The tab after a number only leads to the text's edge.
void RtfBody::PlaceMarker(const RtfParagraph& paragraph) {
    const QString marker = std::exchange(marker_, {}).trimmed();
    if (marker.isEmpty()) return;
    const bool isBullet = paragraph.numbering == RtfNumbering::Bullet ||
                          (paragraph.numbering != RtfNumbering::Number && LooksLikeBullet(marker));
    if (isBullet) {
        isItem_ = !paragraph.inTable;
        return;
    }
    WriteGap(markerFormat_);
    builder_.AddText(marker + u' ', markerFormat_);
}

void RtfBody::WriteGap(const RichFormat& format) {
    if (openCells_ > 0) {
        builder_.AddText(QString(openCells_, u'\t'), format);
    } else if (isLaterText_) {
        builder_.AddText(u" ", format);
    }
    openCells_ = 0;
    isLaterText_ = false;
}

void RtfBody::EndParagraph(const RtfParagraph& paragraph, const RichFormat& format) {
    EndLine(paragraph, format);
    isLaterLine_ = false;
}

// The lines of a cell stay in the line of the row.
void RtfBody::EndLine(const RtfParagraph& paragraph, const RichFormat& format) {
    PlaceMarker(paragraph);
    if (paragraph.inTable) {
        isLaterText_ = !builder_.AtLineStart();
        return;
    }
    const bool startsItem = isItem_ || (!isLaterLine_ && paragraph.numbering == RtfNumbering::Bullet);
    builder_.EndParagraph({paragraph.alignment, startsItem}, format);
    isItem_ = false;
    isLaterLine_ = true;
}

void RtfBody::FinishLine(const RtfParagraph& paragraph, const RichFormat& format) {
    if (!builder_.AtLineStart() || !marker_.isEmpty()) EndParagraph(paragraph, format);
}

void RtfBody::EndCell(const RtfParagraph& paragraph) {
    PlaceMarker(paragraph);
    isLaterText_ = false;
    ++openCells_;
}

// The last cell needs no tab.
void RtfBody::EndRow(const RtfParagraph& paragraph, const RichFormat& format) {
    openCells_ = std::max(openCells_ - 1, 0);
    isLaterText_ = false;
    WriteGap(format);
    RtfParagraph line = paragraph;
    line.inTable = false;
    line.numbering = RtfNumbering::None;
    EndParagraph(line, format);
}

RichText RtfBody::Take(RtfParagraph paragraph, const RichFormat& format) {
    paragraph.inTable = false;
    openCells_ = 0;
    if (builder_.HasParagraphs()) {
        FinishLine(paragraph, format);
    } else {
        EndParagraph(paragraph, format);
    }
    return builder_.Take();
}

}  // namespace vellum

#include "tools/text/rich_surface.h"

#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocumentFragment>
#include <QTextList>

#include <algorithm>
#include <cmath>

namespace vellum {
namespace {

QString FontName(const QTextCharFormat& format) {
    return format.font().family();
}

ColorNumber ColorOf(const QTextCharFormat& format) {
    return format.hasProperty(QTextFormat::ForegroundBrush) ? NumberFromColor(format.foreground().color()) : 0;
}

// The format of characters, without the font, whose number depends on the text that it is part of.
RichFormat RichFormatOf(const QTextCharFormat& format) {
    return {.halfPoints = static_cast<std::uint16_t>(std::lround(format.font().pointSizeF() * 2)),
            .color = ColorOf(format),
            .bold = format.fontWeight() > QFont::Medium,
            .italic = format.fontItalic(),
            .underline = format.fontUnderline(),
            .strike = format.fontStrikeOut()};
}

QTextCharFormat CharFormatOf(const RichFormat& rich, const QString& font) {
    QTextCharFormat format;
    format.setFontFamilies({font});
    format.setFontPointSize(rich.Points());
    format.setForeground(ColorFromNumber(rich.color));
    format.setFontWeight(rich.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(rich.italic);
    format.setFontUnderline(rich.underline);
    format.setFontStrikeOut(rich.strike);
    return format;
}

RichAlignment AlignmentOf(const QTextBlock& block) {
    const Qt::Alignment alignment = block.blockFormat().alignment();
    if ((alignment & Qt::AlignHCenter) != 0) return RichAlignment::Center;
    return (alignment & Qt::AlignRight) != 0 ? RichAlignment::Right : RichAlignment::Left;
}

Qt::Alignment AlignmentOf(RichAlignment alignment) {
    switch (alignment) {
        case RichAlignment::Right:
            return Qt::AlignRight | Qt::AlignAbsolute;
        case RichAlignment::Center:
            return Qt::AlignHCenter;
        case RichAlignment::Left:
            break;
    }
    return Qt::AlignLeft | Qt::AlignAbsolute;
}

RichParagraph ParagraphOf(const QTextBlock& block) {
    return {.alignment = AlignmentOf(block), .bullet = block.textList() != nullptr};
}

// What `read` finds in all of them; empty when it differs.
template <typename Things, typename Read>
auto Common(const Things& things, const Read& read) {
    std::optional<std::decay_t<decltype(read(things.front()))>> common;
    for (const auto& thing : things) {
        auto found = read(thing);
        if (common && *common != found) return decltype(common)();
        common = found;
    }
    return common;
}

// Of the characters in a selection, and of its empty lines when there are no others; of the caret's place without one.
std::vector<QTextCharFormat> FormatsOf(const QTextEdit& edit, const QList<QTextBlock>& blocks) {
    const QTextCursor cursor = edit.textCursor();
    if (!cursor.hasSelection()) return {edit.currentCharFormat()};
    std::vector<QTextCharFormat> formats;
    for (const QTextBlock& block : blocks) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const int start = piece.fragment().position();
            const int end = start + piece.fragment().length();
            if (start < cursor.selectionEnd() && end > cursor.selectionStart()) {
                formats.push_back(piece.fragment().charFormat());
            }
        }
    }
    if (formats.empty()) formats.push_back(blocks.front().charFormat());
    return formats;
}

// Writes a rich text to a document, line by line.
class Writer {
public:
    Writer(const QTextCursor& cursor, const RichText& rich) : cursor_(cursor), rich_(rich) {}

    void Write() {
        cursor_.beginEditBlock();
        cursor_.select(QTextCursor::Document);
        cursor_.removeSelectedText();
        int offset = 0;
        for (const RichParagraph& paragraph : rich_.paragraphs) {
            const qsizetype found = rich_.text.indexOf(QLatin1String("\r\n"), offset);
            const int end = found < 0 ? static_cast<int>(rich_.text.size()) : static_cast<int>(found);
            BeginLine(paragraph, FormatAt(offset));
            WriteLine(offset, end);
            offset = end + 2;
        }
        cursor_.endEditBlock();
    }

private:
    void BeginLine(const RichParagraph& paragraph, const QTextCharFormat& format) {
        QTextBlockFormat block;
        block.setAlignment(AlignmentOf(paragraph.alignment));
        if (begun_) {
            cursor_.insertBlock(block, format);
        } else {
            cursor_.setBlockFormat(block);
            cursor_.setBlockCharFormat(format);
        }
        begun_ = true;
        if (!paragraph.bullet) {
            list_ = nullptr;
        } else if (list_) {
            list_->add(cursor_.block());
        } else {
            list_ = cursor_.createList(QTextListFormat::ListDisc);
        }
    }

    void WriteLine(int offset, int end) {
        while (offset < end) {
            const QTextCharFormat format = FormatAt(offset);
            const int runEnd = run_ + 1 < rich_.runs.size() ? rich_.runs[run_ + 1].offset : end;
            const int pieceEnd = std::min(end, runEnd);
            cursor_.insertText(rich_.text.mid(offset, pieceEnd - offset), format);
            offset = pieceEnd;
        }
    }

    // The offsets ascend.
    QTextCharFormat FormatAt(int offset) {
        while (run_ + 1 < rich_.runs.size() && rich_.runs[run_ + 1].offset <= offset) ++run_;
        const RichFormat& format = rich_.runs[run_].format;
        return CharFormatOf(format, rich_.fonts.value(format.font));
    }

    QTextCursor cursor_;
    const RichText& rich_;
    std::size_t run_ = 0;
    QTextList* list_ = nullptr;
    bool begun_ = false;
};

}  // namespace

RichSurface::RichSurface(QWidget* parent) : QTextEdit(parent) {
    const RichText standard;
    QPalette paper = palette();
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    setPalette(paper);
    QFont font(standard.fonts.front());
    font.setPointSizeF(standard.runs.front().format.Points());
    document()->setDefaultFont(font);
    connect(this, &QTextEdit::selectionChanged, this, &RichSurface::SelChanged);
    connect(this, &QTextEdit::cursorPositionChanged, this, &RichSurface::SelChanged);
    connect(this, &QTextEdit::currentCharFormatChanged, this, &RichSurface::SelChanged);
}

RichText RichSurface::Content() const {
    RichTextBuilder builder;
    const auto format = [&builder](const QTextCharFormat& found) {
        RichFormat rich = RichFormatOf(found);
        rich.font = builder.FontNumber(FontName(found));
        return rich;
    };
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const RichParagraph paragraph = ParagraphOf(block);
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const RichFormat rich = format(piece.fragment().charFormat());
            // Shift+Enter ends a line within a block.
            bool later = false;
            for (const QString& line : piece.fragment().text().split(QChar::LineSeparator)) {
                if (std::exchange(later, true)) builder.EndParagraph(paragraph, rich);
                builder.AddText(line, rich);
            }
        }
        builder.EndParagraph(paragraph, format(block.charFormat()));
    }
    return builder.Take();
}

void RichSurface::SetContent(const RichText& rich) {
    Writer(QTextCursor(document()), rich).Write();
    moveCursor(QTextCursor::Start);
    emit SelChanged();
}

std::optional<bool> RichSurface::SelStyle(Style style) const {
    return Common(FormatsOf(*this, SelBlocks()),
                  [style](const QTextCharFormat& format) { return RichFormatOf(format).*style; });
}

void RichSurface::SetSelStyle(Style style, bool on) {
    QTextCharFormat change;
    if (style == &RichFormat::bold) change.setFontWeight(on ? QFont::Bold : QFont::Normal);
    if (style == &RichFormat::italic) change.setFontItalic(on);
    if (style == &RichFormat::underline) change.setFontUnderline(on);
    if (style == &RichFormat::strike) change.setFontStrikeOut(on);
    Merge(change);
}

std::optional<QString> RichSurface::SelFontName() const {
    return Common(FormatsOf(*this, SelBlocks()), FontName);
}

void RichSurface::SetSelFontName(const QString& name) {
    QTextCharFormat change;
    change.setFontFamilies({name});
    Merge(change);
}

std::optional<double> RichSurface::SelFontSize() const {
    return Common(FormatsOf(*this, SelBlocks()),
                  [](const QTextCharFormat& format) { return RichFormatOf(format).Points(); });
}

void RichSurface::SetSelFontSize(double points) {
    QTextCharFormat change;
    change.setFontPointSize(points);
    Merge(change);
}

std::optional<ColorNumber> RichSurface::SelColor() const {
    return Common(FormatsOf(*this, SelBlocks()), ColorOf);
}

void RichSurface::SetSelColor(ColorNumber color) {
    QTextCharFormat change;
    change.setForeground(ColorFromNumber(color));
    Merge(change);
}

std::optional<RichAlignment> RichSurface::SelAlignment() const {
    return Common(SelBlocks(), [](const QTextBlock& block) { return AlignmentOf(block); });
}

void RichSurface::SetSelAlignment(RichAlignment alignment) {
    setAlignment(AlignmentOf(alignment));
    emit SelChanged();
}

std::optional<bool> RichSurface::SelBullet() const {
    return Common(SelBlocks(), [](const QTextBlock& block) { return block.textList() != nullptr; });
}

void RichSurface::SetSelBullet(bool on) {
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    if (on) {
        cursor.createList(QTextListFormat::ListDisc);
    } else {
        for (const QTextBlock& block : SelBlocks()) {
            if (QTextList* const list = block.textList()) list->remove(block);
            QTextBlockFormat format = block.blockFormat();
            format.setIndent(0);
            QTextCursor(block).setBlockFormat(format);
        }
    }
    cursor.endEditBlock();
    emit SelChanged();
}

void RichSurface::SetSelMargins(int right, int first, int others) {
    QTextBlockFormat change;
    change.setRightMargin(right);
    change.setLeftMargin(others);
    change.setTextIndent(first - others);
    textCursor().mergeBlockFormat(change);
}

// An empty line has the format itself.
void RichSurface::Merge(const QTextCharFormat& change) {
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection() && cursor.block().length() == 1) cursor.mergeBlockCharFormat(change);
    mergeCurrentCharFormat(change);
    emit SelChanged();
}

QList<QTextBlock> RichSurface::SelBlocks() const {
    const QTextCursor cursor = textCursor();
    QList<QTextBlock> blocks;
    for (QTextBlock block = document()->findBlock(cursor.selectionStart());
         block.isValid() && block.position() <= cursor.selectionEnd(); block = block.next()) {
        blocks << block;
    }
    return blocks;
}

QMimeData* RichSurface::createMimeDataFromSelection() const {
    auto* const selected = new QMimeData;
    selected->setText(textCursor().selection().toPlainText());
    return selected;
}

bool RichSurface::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText();
}

void RichSurface::insertFromMimeData(const QMimeData* source) {
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();  // else two pastes would be one step of undo
    cursor.insertText(source->text());
    cursor.endEditBlock();
    ensureCursorVisible();
}

}  // namespace vellum

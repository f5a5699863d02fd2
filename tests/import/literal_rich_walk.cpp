#include "tests/import/literal_rich_walk.h"

#include "values/color_hex.h"
#include "values/number_rules.h"

#include <QList>

namespace vellum::test {
namespace {

// A rich text surface of one character a cell. Nothing wraps on it.
class Surface {
public:
    explicit Surface(const RichText& rich) : rich_(rich) {
        std::size_t run = 0;
        for (int offset = 0; offset <= rich.text.size(); ++offset) {
            while (run + 1 < rich.runs.size() && rich.runs[run + 1].offset <= offset) ++run;
            if (offset < rich.text.size()) {
                cells_.append({rich.text.at(offset), rich.runs[run].format});
            } else {
                end_ = rich.runs[run].format;
            }
        }
    }

    int SelStart = 0;
    int SelLength = 0;

    [[nodiscard]] int Length() const { return static_cast<int>(cells_.size()); }

    [[nodiscard]] QString Text() const {
        QString text;
        for (const Cell& cell : cells_) text += cell.character;
        return text;
    }

    [[nodiscard]] QString SelText() const { return Text().mid(SelStart, SelLength); }

    // The new text has the format of the first character that it replaces.
    void SetSelText(const QString& text) {
        const RichFormat format = cells_.at(SelStart).format;
        cells_.remove(SelStart, SelLength);
        for (int i = 0; i < text.size(); ++i) cells_.insert(SelStart + i, {text.at(i), format});
    }

    int Find(const QString& text, int start) {
        if (start > Length()) return -1;
        const auto found = static_cast<int>(Text().indexOf(text, start));
        if (found < 0) return -1;
        SelStart = found;
        SelLength = static_cast<int>(text.size());
        return found;
    }

    [[nodiscard]] int GetLineFromChar(int offset) const { return static_cast<int>(Text().left(offset).count("\r\n")); }

    [[nodiscard]] const RichFormat& Format() const { return SelStart < Length() ? cells_.at(SelStart).format : end_; }
    [[nodiscard]] bool SelBold() const { return Format().bold; }
    [[nodiscard]] bool SelItalic() const { return Format().italic; }
    [[nodiscard]] bool SelUnderline() const { return Format().underline; }
    [[nodiscard]] QString SelFontName() const { return rich_.fonts.at(Format().font); }
    [[nodiscard]] double SelFontSize() const { return Format().Points(); }
    [[nodiscard]] ColorNumber SelColor() const { return Format().color; }
    [[nodiscard]] int SelAlignment() const { return static_cast<int>(Paragraph().alignment); }
    [[nodiscard]] bool SelBullet() const { return Paragraph().bullet; }

private:
    struct Cell {
        QChar character;
        RichFormat format;
    };

    [[nodiscard]] const RichParagraph& Paragraph() const {
        return rich_.paragraphs.at(static_cast<std::size_t>(GetLineFromChar(qMin(SelStart, Length()))));
    }

    const RichText& rich_;
    QList<Cell> cells_;
    RichFormat end_;
};

void ReplaceAll(Surface& surface, const QString& sought, const QString& replacement, int step) {
    int position = -step;
    while (true) {
        position = surface.Find(sought, position + step);
        if (position == -1) break;
        surface.SetSelText(replacement);
    }
}

void ReplaceTabs(Surface& surface) {
    int position = -1;
    while (true) {
        position = surface.Find("\t", position + 1);
        if (position == -1) break;
        const QString blank = "&nbsp;";
        if (surface.SelFontSize() <= 10) {
            surface.SetSelText(blank.repeated(16));
        } else if (surface.SelFontSize() <= 12) {
            surface.SetSelText(blank.repeated(12));
        } else if (surface.SelFontSize() <= 14) {
            surface.SetSelText(blank.repeated(10));
        } else if (surface.SelFontSize() <= 18) {
            surface.SetSelText(blank.repeated(8));
        } else if (surface.SelFontSize() <= 24) {
            surface.SetSelText(blank.repeated(6));
        } else if (surface.SelFontSize() <= 36) {
            surface.SetSelText(blank.repeated(4));
        }
    }
}

struct Walk {
    Surface& surface;
    int line = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    QString fontName{};
    int fontSize = 0;
    ColorNumber color = 0;
    bool inItem = false;
    QString alignment{};

    QString LineStyle() {
        if (surface.SelAlignment() == 1) alignment = "right";
        if (surface.SelAlignment() == 0) alignment = "left";
        if (surface.SelAlignment() == 2) alignment = "center";
        QString style = "text-align: " + alignment + ";";
        bold = surface.SelBold();
        if (bold) style += " font-weight: bold;";
        italic = surface.SelItalic();
        if (italic) style += " font-style: italic;";
        underline = surface.SelUnderline();
        if (underline) style += " text-decoration: underline;";
        fontSize = static_cast<int>(RoundHalfEven(surface.SelFontSize()));
        style += " font-size: " + QString::number(fontSize) + "pt;";
        fontName = surface.SelFontName();
        style += " font-family: " + fontName + ";";
        color = surface.SelColor();
        return style + " color: " + ColorToHex(color) + ";";
    }

    QString OpenItem() {
        if (!surface.SelBullet()) return {};
        inItem = true;
        return "<li>";
    }

    QString CloseItem() {
        QString tag = inItem ? "</li>" : "";
        inItem = false;
        return tag;
    }

    QString NewLine() {
        line = surface.GetLineFromChar(surface.SelStart);
        const QString style = LineStyle();
        QString markup = "&nbsp;</span>";
        markup += CloseItem();
        markup += "</div>\r\n<div style=\"" + style + "\">\r\n";
        markup += OpenItem();
        return markup + "<span>";
    }

    QString Change() {
        QString change;
        if (surface.SelBold() != bold) {
            bold = surface.SelBold();
            change += bold ? " font-weight: bold;" : " font-weight: normal;";
        }
        if (surface.SelItalic() != italic) {
            italic = surface.SelItalic();
            change += italic ? " font-style: italic;" : " font-style: normal;";
        }
        if (surface.SelUnderline() != underline) {
            underline = surface.SelUnderline();
            change += underline ? " text-decoration: underline;" : " text-decoration: normal;";
        }
        if (surface.SelFontName() != fontName) {
            fontName = surface.SelFontName();
            change += " font-family: " + fontName + ";";
        }
        if (surface.SelFontSize() != fontSize) {
            fontSize = static_cast<int>(RoundHalfEven(surface.SelFontSize()));
            change += " font-size: " + NumberText(surface.SelFontSize()) + "pt;";
        }
        if (surface.SelColor() != color) {
            color = surface.SelColor();
            change += " color: " + ColorToHex(color) + ";";
        }
        return change.isEmpty() ? QString() : "</span><span style=\"" + change + "\">";
    }
};

}  // namespace

QString LiteralConvertRichText(const RichText& rich) {
    Surface surface(rich);
    ReplaceAll(surface, "<", "&lt;", 5);
    ReplaceAll(surface, ">", "&gt;", 5);
    ReplaceAll(surface, "  ", "&nbsp; ", 8);
    ReplaceAll(surface, "\"", "&quot;", 7);
    ReplaceTabs(surface);

    QString markup = "<span style=\"font-weight: normal; font-style: normal; text-decoration: normal;\">\r\n";
    surface.SelStart = 0;
    surface.SelLength = 1;
    Walk walk{surface};
    walk.line = surface.GetLineFromChar(surface.SelStart);
    markup += "<div style=\"" + walk.LineStyle() + "\">\r\n";
    markup += walk.OpenItem();
    markup += "<span>";
    markup += surface.SelText();
    const int last = surface.Length() + 1;
    for (int i = 1; i <= last; ++i) {
        surface.SelStart = qMin(i, surface.Length());
        surface.SelLength = 1;
        const bool sameLine = surface.GetLineFromChar(surface.SelStart) == walk.line;
        markup += sameLine ? walk.Change() : walk.NewLine();
        markup += surface.SelText();
    }
    markup += "</span>\r\n";
    markup += walk.CloseItem();
    return markup + "</div>\r\n</span>";
}

}  // namespace vellum::test

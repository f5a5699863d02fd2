// A text that is written and formatted as in a word processor, on white paper in any theme.
#pragma once

#include "import/rich_text.h"

#include <QTextEdit>

#include <optional>

namespace vellum {

// What is asked of the selection is empty where it is mixed; with nothing selected it is what the next character gets.
class RichSurface : public QTextEdit {
    Q_OBJECT
public:
    explicit RichSurface(QWidget* parent = nullptr);

    [[nodiscard]] RichText Content() const;
    // Replaces everything, as one step of undo. The caret goes to the beginning.
    void SetContent(const RichText& rich);

    // One of the styles of RichFormat that are on or off.
    using Style = bool RichFormat::*;

    [[nodiscard]] std::optional<bool> SelStyle(Style style) const;
    void SetSelStyle(Style style, bool on);
    [[nodiscard]] std::optional<QString> SelFontName() const;
    void SetSelFontName(const QString& name);
    [[nodiscard]] std::optional<double> SelFontSize() const;  // in points
    void SetSelFontSize(double points);
    [[nodiscard]] std::optional<ColorNumber> SelColor() const;
    void SetSelColor(ColorNumber color);
    [[nodiscard]] std::optional<RichAlignment> SelAlignment() const;
    void SetSelAlignment(RichAlignment alignment);
    [[nodiscard]] std::optional<bool> SelBullet() const;
    void SetSelBullet(bool on);

    // Of the paragraphs that are selected: room on the right, and where the first and where the other lines begin, in
    // pixels.
    void SetSelMargins(int right, int first, int others);

signals:
    // What the selection is, or its format, has changed.
    void SelChanged();

protected:
    // The clipboard has the text alone, which takes the format of its place.
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void Merge(const QTextCharFormat& change);
    [[nodiscard]] QList<QTextBlock> SelBlocks() const;
};

}  // namespace vellum

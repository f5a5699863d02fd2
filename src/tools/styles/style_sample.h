// A sample of an element, painted with the values of its style as a page would show it.
#pragma once

#include "tools/styles/style_box.h"

#include <QWidget>

class QTextDocument;

namespace vellum {

// White paper with the element, and a line of what comes after it where something can. As large as these need, for a
// scroll area.
class StyleSample : public QWidget {
    Q_OBJECT
public:
    explicit StyleSample(QWidget* parent = nullptr);
    ~StyleSample() override;

    // An empty element stands for any.
    void Show(const QString& element, const StyleValues& values);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowBox();
    void LayOut();
    void PaintBox(QPainter& painter) const;
    void PaintMarker(QPainter& painter, const QRectF& content) const;

    QString element_;
    StyleValues values_;
    StyleBox box_;
    bool isBody_ = false;
    std::unique_ptr<QTextDocument> text_;
    QRectF border_;    // the outer edge of the borders
    double next_ = 0;  // the top of what comes after the element
};

}  // namespace vellum

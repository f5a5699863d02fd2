// The panel at the bottom of the main window: the author's view of the site's directory, and the reference tree beside
// it.
#pragma once

#include "reference/reference_view.h"
#include "widgets/file_lists.h"

#include <QFrame>
#include <QString>
#include <QWidget>

namespace vellum {

// The bar by which a person makes the panel higher or lower. Positions are in pixels from the bar's top, so that they
// are negative above it; the main window decides what a height comes to.
class DragBar : public QFrame {
    Q_OBJECT

public:
    // Pixels; even, so that half of it is a whole number.
    static constexpr int thickness = 6;
    // How far one press of Up or Down moves the bar.
    static constexpr int keyStep = 16;

    explicit DragBar(QWidget* parent = nullptr);

signals:
    void Dragged(int pointerY);   // at each move of the pointer while the left button is held
    void Released(int pointerY);  // when the button goes up; also for each press of Up or Down

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

class WebsitePanel : public QWidget {
    Q_OBJECT

public:
    explicit WebsitePanel(QWidget* parent = nullptr);

    DragBar* const Picture2;
    DriveList* const Drive1;
    DirectoryList* const Dir1;
    FileList* const File2;
    ReferenceView* const TreeView1;

    // The drive, the directory and the directory of the file list. A setter is false, and changes nothing, when the
    // path is missing or can't be read. A change of the first moves the second, and of the second the third.
    [[nodiscard]] QString Drive() const { return Drive1->Drive(); }
    bool SetDrive(const QString& path) { return Drive1->SetDrive(path); }
    [[nodiscard]] QString Directory() const { return Dir1->Path(); }
    bool SetDirectory(const QString& path) { return Dir1->SetPath(path); }
    [[nodiscard]] QString FilePath() const { return File2->Path(); }
    bool SetFilePath(const QString& path) { return File2->SetPath(path); }
    // Reads the places, the directories and the files again.
    void Refresh();

    // How high the panel would like to be, in pixels; a low window makes it lower.
    void SetWantedHeight(int pixels);
    [[nodiscard]] QSize sizeHint() const override { return {0, wantedHeight_}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

    // Places the lists, in pixels of the panel; the three that reach to its lower edge get their heights from it.
    void ApplyLists(const QRect& drive, const QRect& directory, const QRect& files, const QRect& tree);

signals:
    void FileActivated(const QString& path);
    void Hint(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PlaceByDesign();
    void FitHeights();

    int wantedHeight_ = 173;
};

}  // namespace vellum

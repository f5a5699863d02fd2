// The panel at the bottom of the main window: the directory of the site, and the reference tree beside it.
#pragma once

#include "reference/reference_view.h"
#include "widgets/file_lists.h"

#include <QFrame>
#include <QString>
#include <QWidget>

namespace vellum {

// The bar by which a person makes the panel higher or lower; the main window does the resizing. Positions are in pixels
// from the bar's top, negative above it.
class DragBar : public QFrame {
    Q_OBJECT

public:
    // In pixels; even, because half of it must be a whole number.
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

    // The drive, the directory and the directory of the file list. A change of the drive changes the directory, and
    // that of the directory changes the file list. A setter returns false, and changes nothing, for a path that is
    // missing or can't be read.
    [[nodiscard]] QString Drive() const { return Drive1->Drive(); }
    bool SetDrive(const QString& path) { return Drive1->SetDrive(path); }
    [[nodiscard]] QString Directory() const { return Dir1->Path(); }
    bool SetDirectory(const QString& path) { return Dir1->SetPath(path); }
    [[nodiscard]] QString FilePath() const { return File2->Path(); }
    bool SetFilePath(const QString& path) { return File2->SetPath(path); }
    // Reads the places, the directories and the files again.
    void Refresh();

    // The height in pixels that the panel gets when the window has the room.
    void SetWantedHeight(int pixels);
    [[nodiscard]] QSize sizeHint() const override { return {0, wantedHeight_}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

    // Places the lists, in pixels of the panel. All but the drive list reach to its lower edge, whatever their height.
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

// The forms of the Frame Builder over a shown document, driven by real events.
#pragma once

#include "tests/tools/tool_fixture.h"
#include "tools/frames/frame_grid.h"
#include "tools/frames/frame_page.h"

#include <QFrame>

namespace vellum::test {

inline QString Shown(const QString& caption) {
    return QString(caption).remove(u'&');
}

class FrameBuilder : public ToolFixture {
protected:
    // The page of the wizard with so many lines laid out on it.
    template <typename Page>
    void OpenPage(const QString& lines, const std::function<void(Page&)>& steps) {
        Open<Page>([&](Page& page) {
            ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
            Type(page, "txtNumber", lines);
            Click(page, "cmdNext");
            steps(page);
        });
    }

    static FrameGrid& Grid(const QWidget& page, int line) { return Get<FrameGrid>(page, Indexed("Row1", line)); }

    static void PressFrame(const QWidget& page, int line, int frame) {
        FrameGrid& grid = Grid(page, line);
        const bool stacked = page.objectName() == u"FormWizard2";
        const QModelIndex index = grid.model()->index(stacked ? frame : 0, stacked ? 0 : frame);
        QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(index).center());
    }

    static bool DetailsShow(const QWidget& page) { return Get<QFrame>(page, "picControl").isVisible(); }
    // The line and frame that is marked, as "line/frame"; several would be told apart by blanks.
    static QString Marked(const QWidget& page) {
        QStringList marks;
        for (int line = 0; line < 4; ++line) {
            for (const QModelIndex& index : Grid(page, line).selectionModel()->selectedIndexes()) {
                marks << QString("%1/%2").arg(line).arg(index.row() + index.column());
            }
        }
        return marks.join(u' ');
    }
};

}  // namespace vellum::test

#include "shell/form16.h"

#include "tests/shell/main_window_fixture.h"
#include "tests/support/wait_for.h"

#include <QSignalSpy>

namespace vellum::test {
namespace {

class Form16Test : public MainWindowFixture {
protected:
    Form16& OpenWithPreview(const QString& commandLine = {}) {
        WriteSetting(settings, keys::windowState, "0");
        WriteSetting(settings, keys::windowWidth, "18000");
        WriteSetting(settings, keys::windowHeight, "12000");
        Open(true, commandLine);
        return Form();
    }

    [[nodiscard]] Form16& Form() const { return *qobject_cast<Form16*>(window->ActiveDocument()); }

    static QTimer& Timer2(const Form16& form) { return *form.findChild<QTimer*>("Timer2", Qt::FindDirectChildrenOnly); }

    static void ClickTab(TabStrip& strip, int index) {
        QTest::mouseClick(&strip, Qt::LeftButton, {}, strip.tabRect(index - 1).center());
    }

    // In twips of the form, as far as whole pixels tell.
    static int Twips(int pixels) { return pixels * 15; }
};

TEST_F(Form16Test, EveryDocumentOfASessionWithPreviewIsOne) {
    OpenWithPreview();
    window->NewForm();
    EXPECT_NE(qobject_cast<Form16*>(window->ActiveDocument()), nullptr);
}

TEST_F(Form16Test, StartsHalfAndHalfSideBySide) {
    const Form16& form = OpenWithPreview();
    EXPECT_TRUE(form.PreviewSplitVertical);
    EXPECT_EQ(form.Slider1->orientation(), Qt::Horizontal);
    EXPECT_EQ(form.Slider1->maximum(), Twips(form.width()) - 80);
    EXPECT_NEAR(form.Slider1->value(), form.Slider1->maximum() / 2, 1);
    EXPECT_NEAR(Twips(form.Text1->width()), form.Slider1->value(), 15);
    EXPECT_EQ(form.Text1->y(), 20);
    EXPECT_NEAR(Twips(form.WebBrowser1->x()), form.Slider1->value() + 190, 15);
    EXPECT_NEAR(Twips(form.Text1->height()), Twips(form.height()) - 705, 15);
    EXPECT_EQ(form.Slider1->toolTip(), "Resizes the Editing and Preview Panes.");
}

TEST_F(Form16Test, ALargeFontCutsNothingOffTheStripBelowThePanes) {
    Form16& form = OpenWithPreview();
    QFont large = form.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    form.setFont(large);
    form.ResizeMe();
    const QRect strip(form.TabStrip1->mapTo(&form, QPoint()), form.TabStrip1->size());
    EXPECT_GE(strip.height(), form.TabStrip1->sizeHint().height());
    EXPECT_LE(strip.bottom(), form.height());
    EXPECT_LE(form.Text1->geometry().bottom(), strip.top());
}

TEST_F(Form16Test, ANewWindowIsLaidOutByItsOwnSize) {
    OpenWithPreview();
    window->area->currentSubWindow()->showNormal();
    window->area->currentSubWindow()->resize(300, 200);
    window->NewForm();
    const Form16& form = Form();
    ASSERT_NE(form.width(), 300);
    EXPECT_EQ(form.Slider1->maximum(), Twips(form.width()) - 80);
}

TEST_F(Form16Test, TakesTheStoredShareAndDirection) {
    WriteSetting(settings, keys::editPercent, "25");
    WriteSetting(settings, keys::verticalMain, "False");
    const Form16& form = OpenWithPreview();
    EXPECT_FALSE(form.PreviewSplitVertical);
    EXPECT_EQ(form.Slider1->orientation(), Qt::Vertical);
    EXPECT_EQ(form.Slider1->maximum(), Twips(form.height()) - 500);
    EXPECT_NEAR(form.Slider1->value(), form.Slider1->maximum() * 0.25, 1);
    EXPECT_EQ(form.Text1->x(), 20);
    EXPECT_NEAR(Twips(form.Text1->width()), Twips(form.width()) - 700, 15);
}

TEST_F(Form16Test, AnyOtherStoredDirectionIsStacked) {
    WriteSetting(settings, keys::verticalMain, "true");
    EXPECT_FALSE(OpenWithPreview().PreviewSplitVertical);
}

TEST_F(Form16Test, TheFourthTabTurnsTheSplitAndKeepsItsProportion) {
    WriteSetting(settings, keys::editPercent, "30");
    Form16& form = OpenWithPreview();
    ClickTab(*form.TabStrip1, 4);
    EXPECT_FALSE(form.PreviewSplitVertical);
    EXPECT_EQ(form.Slider1->orientation(), Qt::Vertical);
    EXPECT_NEAR(form.Slider1->value() / double(form.Slider1->maximum()), 0.3, 0.001);
    EXPECT_GE(form.WebBrowser1->y(), form.Text1->height());
    ClickTab(*form.TabStrip1, 4);
    EXPECT_EQ(form.Slider1->orientation(), Qt::Horizontal);
    EXPECT_NEAR(form.Slider1->value() / double(form.Slider1->maximum()), 0.3, 0.001);
}

TEST_F(Form16Test, ThePanesFollowTheSlider) {
    Form16& form = OpenWithPreview();
    form.Slider1->setFocus();
    const int before = form.Text1->width();
    QTest::keyClick(form.Slider1, Qt::Key_Right);
    EXPECT_GT(form.Text1->width(), before);
    EXPECT_NEAR(Twips(form.WebBrowser1->x() - form.Text1->width()), 190, 15);
    QTest::keyClick(form.Slider1, Qt::Key_Home);
    EXPECT_EQ(form.Text1->width(), 0);

    ClickTab(*form.TabStrip1, 4);
    form.Slider1->setFocus();
    QTest::keyClick(form.Slider1, Qt::Key_Down);
    EXPECT_GT(form.Text1->height(), 0) << "upright, Down moves the handle down and the editor grows";
}

TEST_F(Form16Test, TheSliderTellsWhatItIsFor) {
    const Form16& form = OpenWithPreview();
    QTest::mouseMove(form.Slider1, {5, 5});
    QTest::mouseMove(form.Slider1, {9, 7});
    EXPECT_EQ(Panel(3), "Resizes the editing and preview panes.");
}

TEST_F(Form16Test, WrapsByTheEditorsWidth) {
    const Form16& form = OpenWithPreview();
    EXPECT_EQ(form.Text1->RightMargin(), 1000000);
    Trigger("mnuWrapItem");
    EXPECT_NEAR(form.Text1->RightMargin(), form.Slider1->value() - 500, 1);
}

TEST_F(Form16Test, ALayoutLeavesTheSelectionAlone) {
    const Form16& form = OpenWithPreview(MakeFile("page.htm", "some words of text"));
    form.Text1->SetSelStart(5);
    form.Text1->SetSelLength(5);
    window->resize(window->width() - 100, window->height());
    EXPECT_EQ(form.Text1->SelStart(), 5);
    EXPECT_EQ(form.Text1->SelText(), "words");
}

TEST_F(Form16Test, TimersRunAtTheirPeriods) {
    WriteSetting(settings, keys::refreshRate, "12");
    const Form16& form = OpenWithPreview();
    EXPECT_EQ(Timer2(form).interval(), 12000);
    EXPECT_TRUE(Timer2(form).isActive());
    EXPECT_EQ(form.Timer1->interval(), 400);
    EXPECT_TRUE(form.Timer1->isSingleShot());
    EXPECT_TRUE(form.Check1->isChecked());
    EXPECT_EQ(form.Check1->text(), "AutoPreview");
}

TEST_F(Form16Test, TheFirstViewIsTheManualAndStopsTheRefresh) {
    const Form16& form = OpenWithPreview(MakeFile("page.htm", "<p>x</p>"));
    EXPECT_FALSE(form.WebBrowser1->isVisible());
    ASSERT_TRUE(WaitFor([&] { return form.WebBrowser1->isVisible(); }));
    EXPECT_FALSE(form.Timer1->isActive());
    EXPECT_FALSE(Timer2(form).isActive()) << "the manual stays until the text changes";
    EXPECT_TRUE(WaitFor([&] { return Bytes(SitePath("caching.htm")).contains("<title>Vellumcraft Manual</title>"); }));
    QTest::keyClicks(form.Text1, "x");
    EXPECT_TRUE(Timer2(form).isActive());
}

TEST_F(Form16Test, TabsHaveTheirTips) {
    const Form16& form = OpenWithPreview();
    EXPECT_EQ(form.TabStrip1->tabToolTip(0), "Previews the HTML Document");
    EXPECT_EQ(form.TabStrip1->tabToolTip(1), "Opens Multi-Resolution Preview");
    EXPECT_EQ(form.TabStrip1->tabToolTip(2), "Launches Visual VC, a WYSIWYG editor.");
    EXPECT_EQ(form.TabStrip1->tabToolTip(3),
              "Shifts Between A Vertical and Horizontal Split of the Editing and Preview Panes.");
}

TEST_F(Form16Test, ANewRateReachesTheActiveWindowsTimerAlone) {
    Form16& first = OpenWithPreview();
    window->NewForm();
    EditorOptions options = window->Options().Now();
    options.RefreshRate = 3;
    window->Options().Set(options);
    EXPECT_EQ(Timer2(Form()).interval(), 3000);
    EXPECT_EQ(Timer2(first).interval(), 7000);
    for (const std::int16_t none : {0, -1, 33}) {
        options.RefreshRate = none;
        window->Options().Set(options);
        EXPECT_EQ(Timer2(Form()).interval(), 7000) << none;
    }
}

TEST_F(Form16Test, WithAutoPreviewOffNoFileIsWrittenAndTheTimerGoesOn) {
    const Form16& form = OpenWithPreview(MakeFile("page.html", "<p>x</p>"));
    QTest::mouseClick(form.Check1, Qt::LeftButton, {}, {8, form.Check1->height() / 2});
    ASSERT_FALSE(form.Check1->isChecked());
    Timer2(form).setInterval(10);
    QTest::keyClicks(form.Text1, "y");
    const QSignalSpy ticks(&Timer2(form), &QTimer::timeout);
    ASSERT_TRUE(WaitFor([&] { return ticks.count() > 3; }));
    EXPECT_TRUE(Timer2(form).isActive());
    EXPECT_FALSE(QFile::exists(SitePath("caching.html")));
    QTest::mouseClick(form.Check1, Qt::LeftButton, {}, {8, form.Check1->height() / 2});
    EXPECT_TRUE(WaitFor([&] { return QFile::exists(SitePath("caching.html")); }));
}

TEST_F(Form16Test, TheKeyboardStaysWithTheTextWhenACommandIsClicked) {
    Form16& form = OpenWithPreview(MakeFile("page.html", "<p>x</p>"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    form.Text1->setFocus();
    ClickTab(*form.TabStrip1, 4);
    EXPECT_TRUE(form.Text1->hasFocus());
    QTest::mouseClick(form.Check1, Qt::LeftButton, {}, {8, form.Check1->height() / 2});
    EXPECT_TRUE(form.Text1->hasFocus());
    form.TabStrip1->setFocus();
    form.TabStrip1->setCurrentIndex(0);
    QTest::keyClick(form.TabStrip1, Qt::Key_Return);
    EXPECT_TRUE(form.Text1->hasFocus());
}

TEST_F(Form16Test, WithoutAnEngineThePreviewTabSaysSo) {
    Form16& form = OpenWithPreview(MakeFile("page.html", "<p>x</p>"));
    ClickTab(*form.TabStrip1, 1);
    ASSERT_TRUE(WaitFor([&] { return !prompts.messages.isEmpty(); }));
    EXPECT_EQ(prompts.messages, QStringList{"Trouble with IE"});
    EXPECT_TRUE(form.Saver());
    EXPECT_EQ(Bytes(SitePath("page.html")), "<p>x</p>");
}

}  // namespace
}  // namespace vellum::test

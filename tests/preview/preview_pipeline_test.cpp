#include "preview/preview_pipeline.h"

#include "tests/preview/preview_fixture.h"
#include "tests/support/dead_folder.h"
#include "tests/support/page_of.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

QByteArray Script(int offset) {
    return "<SCRIPT language=\"Javascript\">\r\nsetTimeout('ScrollStart()',5)\r\nfunction ScrollStart() {\r\n"
           "window.scrollTo(0," +
           QByteArray::number(offset) + ")\r\n}</SCRIPT>\r\n";
}

class PreviewPipelineTest : public PreviewFixture {
protected:
    void SetRate(std::int16_t seconds) {
        EditorOptions options = bench_.Options().Now();
        options.RefreshRate = seconds;
        bench_.Options().Set(options);
    }

    // Lets a tick happen, and waits until the browser shows what it brings.
    void Tick() {
        QSignalSpy complete(&document_->browser, &BrowserSurface::NavigateComplete);
        document_->pipeline.Refresh();
        ASSERT_TRUE(WaitFor([&] { return !complete.isEmpty(); }));
        ASSERT_TRUE(complete.last().first().toBool());
    }

    void PreviewNow() {
        QSignalSpy complete(&document_->browser, &BrowserSurface::NavigateComplete);
        document_->pipeline.PreviewNow();
        ASSERT_TRUE(WaitFor([&] { return !complete.isEmpty(); }));
        ASSERT_TRUE(complete.last().first().toBool());
    }

    // A tick that must not write: waits until nothing can be on its way any more.
    void QuietTick() {
        document_->pipeline.Refresh();
        EXPECT_TRUE(WaitFor([&] { return !document_->pipeline.IsWriting(); }));
    }
};

TEST_F(PreviewPipelineTest, ATickWritesTheTextAndShowsIt) {
    document_->Text1->SetText("<title>first</title>\r\n<p>x</p>");
    Tick();
    EXPECT_EQ(document_->browser.Path(), Site("caching.htm"));
    EXPECT_EQ(document_->browser.Title(), "first");
    EXPECT_EQ(Read(Site("caching.htm")), "<title>first</title>\r\n<p>x</p>\r\n" + Script(0));
    EXPECT_FALSE(document_->Timer().isActive());
    EXPECT_TRUE(bench_.prompts.messages.isEmpty());
}

TEST_F(PreviewPipelineTest, TheTimerTicksFromTheStart) {
    document_->Text1->SetText("<title>first</title>");
    document_->Timer().setInterval(1);
    EXPECT_TRUE(WaitForTitle("first"));
}

TEST_F(PreviewPipelineTest, TheTimerTakesItsPeriodFromTheRefreshRate) {
    for (const auto& [seconds, milliseconds] : {std::pair<int, int>{1, 1000}, {12, 12000}, {32, 32000}}) {
        SetRate(static_cast<std::int16_t>(seconds));
        PreviewPipeline pipeline(bench_, *document_, document_->browser, document_->autoPreview);
        EXPECT_EQ(document_->findChildren<QTimer*>("Timer2").last()->interval(), milliseconds);
    }
    for (const int impossible : {33, 0, -1}) {
        SetRate(static_cast<std::int16_t>(impossible));
        PreviewPipeline pipeline(bench_, *document_, document_->browser, document_->autoPreview);
        EXPECT_EQ(document_->findChildren<QTimer*>("Timer2").last()->interval(), 7000);
    }
}

TEST_F(PreviewPipelineTest, NothingIsShownInAWindowThatHasClosed) {
    document_->Text1->SetText("x");
    document_->pipeline.Refresh();
    document_->pipeline.Stop();
    EXPECT_FALSE(document_->Timer().isActive());
    EXPECT_TRUE(WaitFor([&] { return !document_->pipeline.IsWriting(); }));
    EXPECT_EQ(document_->browser.Path(), "");
}

TEST_F(PreviewPipelineTest, AChangeOfTheTextStartsTheTimerAgain) {
    document_->Text1->SetText("x");
    Tick();
    ASSERT_FALSE(document_->Timer().isActive());
    QTest::keyClicks(document_->Text1, "y");
    EXPECT_TRUE(document_->Timer().isActive());
}

TEST_F(PreviewPipelineTest, FurtherKeysDontPutTheTickOff) {
    QTimer& timer = document_->Timer();
    timer.start(3600 * 1000);
    ASSERT_TRUE(WaitFor([&] { return timer.remainingTime() < 3600 * 1000 - 50; }));
    QTest::keyClicks(document_->Text1, "abc");
    EXPECT_LT(timer.remainingTime(), 3600 * 1000 - 50);
}

TEST_F(PreviewPipelineTest, AChangeDuringTheWriteKeepsTheTimerOn) {
    document_->Text1->SetText("x");
    QSignalSpy complete(&document_->browser, &BrowserSurface::NavigateComplete);
    document_->pipeline.Refresh();
    ASSERT_TRUE(document_->pipeline.IsWriting());
    QTest::keyClicks(document_->Text1, "y");
    ASSERT_TRUE(WaitFor([&] { return !complete.isEmpty(); }));
    EXPECT_EQ(Read(Site("caching.htm")), "x\r\n" + Script(0));
    EXPECT_TRUE(document_->Timer().isActive());
}

TEST_F(PreviewPipelineTest, WithoutAutoPreviewNothingIsWritten) {
    document_->autoPreview.setChecked(false);
    document_->Text1->SetText("x");
    QuietTick();
    EXPECT_FALSE(QFileInfo::exists(Site("caching.htm")));
    EXPECT_TRUE(document_->Timer().isActive());
    EXPECT_EQ(document_->browser.Path(), "");
}

TEST_F(PreviewPipelineTest, AnEmptyTextIsNotShown) {
    QuietTick();
    EXPECT_FALSE(QFileInfo::exists(Site("caching.htm")));
    EXPECT_TRUE(document_->Timer().isActive());
    document_->pipeline.PreviewNow();
    EXPECT_FALSE(document_->pipeline.IsWriting());
    EXPECT_FALSE(QFileInfo::exists(Site("caching.htm")));
    EXPECT_TRUE(bench_.prompts.messages.isEmpty());
}

TEST_F(PreviewPipelineTest, TheReadersPlaceIsKept) {
    const QString page = "<title>long</title><body><div style=\"height:5000px\">x</div></body>";
    document_->Text1->SetText(page);
    Tick();
    // After the page's own script, which scrolls to the top.
    PageOf(document_->browser)->runJavaScript("setTimeout(function(){window.scrollTo(0,640)},50)");
    ASSERT_TRUE(WaitFor([&] { return document_->browser.ScrollTop() == 640; }));
    Tick();
    EXPECT_TRUE(Read(Site("caching.htm")).endsWith(Script(640)));
    EXPECT_TRUE(WaitFor([&] { return document_->browser.ScrollTop() == 640; }));
}

TEST_F(PreviewPipelineTest, AfterTheManualAPageBeginsAtItsTop) {
    const QString manual =
        "<html><head><title>Vellumcraft Manual</title></head><body>"
        "<div style=\"height:5000px\">x</div></body></html>";
    for (const bool byTab : {false, true}) {
        QSignalSpy complete(&document_->browser, &BrowserSurface::NavigateComplete);
        LoadPage(bench_, manual);
        ASSERT_TRUE(WaitFor([&] { return !complete.isEmpty(); }));
        ASSERT_EQ(document_->browser.Title(), "Vellumcraft Manual");
        PageOf(document_->browser)->runJavaScript("window.scrollTo(0,640)");
        ASSERT_TRUE(WaitFor([&] { return document_->browser.ScrollTop() == 640; }));
        document_->Text1->SetText("<title>mine</title>");
        byTab ? PreviewNow() : Tick();
        EXPECT_TRUE(Read(Site("caching.htm")).endsWith(Script(0)));
    }
}

TEST_F(PreviewPipelineTest, ASavedDocumentIsShownFromItsOwnFolder) {
    const QString folder = directory_.filePath("a");
    QDir().mkpath(folder);
    WriteFile(folder + "/b.html", "as saved");
    document_->SetCaption(folder + "/b.html");
    document_->Text1->SetText("changed");
    document_->SetSaver(false);
    Tick();
    EXPECT_EQ(document_->browser.Path(), folder + "/caching.html");
    EXPECT_EQ(Read(folder + "/caching.html"), "changed\r\n" + Script(0));
    EXPECT_FALSE(QFileInfo::exists(Site("caching.html")));
    EXPECT_EQ(Read(folder + "/b.html"), "as saved");
    EXPECT_FALSE(document_->Saver());
    document_->SetSaver(true);
    PreviewNow();
    EXPECT_TRUE(document_->Saver());
    EXPECT_EQ(Read(folder + "/b.html"), "as saved");
}

TEST_F(PreviewPipelineTest, ADocumentIsNeverOverwrittenByItsOwnPreview) {
    WriteFile(Site("caching.htm"), "as saved");
    document_->SetCaption(Site("caching.htm"));
    document_->Text1->SetText("<p>changed</p>");
    Tick();
    EXPECT_EQ(document_->browser.Path(), Site("caching-preview.htm"));
    EXPECT_EQ(Read(Site("caching-preview.htm")), "<p>changed</p>\r\n" + Script(0));
    PreviewNow();
    EXPECT_EQ(document_->browser.Path(), Site("caching-preview.htm"));
    EXPECT_EQ(Read(Site("caching.htm")), "as saved");
}

TEST_F(PreviewPipelineTest, NorByThePreviewOfAnother) {
    WriteFile(Site("caching.htm"), "as saved");
    PlainDocument other(bench_);
    bench_.others << &other;
    other.SetCaption(Site("caching.htm"));
    document_->Text1->SetText("x");
    Tick();
    EXPECT_EQ(document_->browser.Path(), Site("caching-preview.htm"));
    EXPECT_EQ(Read(Site("caching.htm")), "as saved");
}

TEST_F(PreviewPipelineTest, ADotInAFolderAloneGivesAStrangeName) {
    const QString folder = directory_.filePath("x.y");
    QDir().mkpath(folder);
    document_->SetCaption(folder + "/page");
    document_->Text1->SetText("x");
    document_->pipeline.Refresh();
    EXPECT_TRUE(WaitFor([&] { return document_->browser.Path() == folder + "/cachingpage"; }));
    EXPECT_EQ(Read(folder + "/cachingpage"), "x\r\n" + Script(0));
}

TEST_F(PreviewPipelineTest, AFileThatCantBeWrittenIsTriedAgainSilently) {
    bench_.website = directory_.filePath("missing");
    document_->Text1->SetText("x");
    QuietTick();
    EXPECT_TRUE(document_->Timer().isActive());
    EXPECT_TRUE(bench_.prompts.messages.isEmpty());
    EXPECT_EQ(document_->browser.Path(), "");
    QDir().mkpath(bench_.website);
    Tick();
    EXPECT_FALSE(document_->Timer().isActive());
}

TEST_F(PreviewPipelineTest, TheTabTellsOfTrouble) {
    bench_.website = directory_.filePath("missing");
    document_->Text1->SetText("x");
    document_->pipeline.PreviewNow();
    EXPECT_TRUE(WaitFor([&] { return !document_->pipeline.IsWriting(); }));
    EXPECT_EQ(bench_.prompts.messages, QStringList{"Trouble with IE"});
}

TEST_F(PreviewPipelineTest, TheTabTellsOfAMissingEngine) {
    qputenv("VELLUMCRAFT_NO_BROWSER", "1");
    document_->Text1->SetText("x");
    document_->pipeline.PreviewNow();
    qunsetenv("VELLUMCRAFT_NO_BROWSER");
    EXPECT_EQ(bench_.prompts.messages, QStringList{"Trouble with IE"});
}

TEST_F(PreviewPipelineTest, TheTabShowsThePageWhateverTheBoxSays) {
    document_->autoPreview.setChecked(false);
    document_->Text1->SetText("<title>now</title>");
    document_->Timer().start();
    PreviewNow();
    EXPECT_EQ(document_->browser.Title(), "now");
    EXPECT_FALSE(document_->Timer().isActive());
}

TEST_F(PreviewPipelineTest, TheTabPutsTheScriptIntoPagesOnly) {
    for (const auto& [name, script] : {std::pair{"a.htm", true}, {"a.html", true}, {"a.HTM", true}, {"a.txt", false}}) {
        document_->SetCaption(directory_.filePath(name));
        document_->Text1->SetText("x");
        PreviewNow();
        const QByteArray bytes = Read(document_->browser.Path());
        EXPECT_EQ(bytes, script ? "x\r\n" + Script(0) : QByteArray("x")) << name;
    }
    document_->SetCaption(directory_.filePath("a.txt"));
    Tick();
    EXPECT_EQ(Read(directory_.filePath("caching.txt")), "x\r\n" + Script(0));
}

TEST_F(PreviewPipelineTest, TheTabDuringAWriteShowsTheNewestText) {
    document_->Text1->SetText("<title>old</title>");
    document_->pipeline.Refresh();
    document_->Text1->SetText("<title>new</title>");
    document_->pipeline.PreviewNow();
    EXPECT_TRUE(WaitForTitle("new"));
    EXPECT_TRUE(Read(Site("caching.htm")).startsWith("<title>new"));
}

TEST_F(PreviewPipelineTest, WritingDoesntHoldUpTheProgram) {
    document_->Text1->SetText(QString("<p>line</p>\r\n").repeated(100000));
    document_->pipeline.Refresh();
    EXPECT_TRUE(document_->pipeline.IsWriting());
    EXPECT_TRUE(WaitFor([&] { return !document_->pipeline.IsWriting(); }));
    EXPECT_EQ(Read(Site("caching.htm")).size(), 100000 * 13 + 2 + Script(0).size());
}

TEST_F(PreviewPipelineTest, AFolderThatDoesntAnswerHoldsNobodyUp) {
    const QString folder = directory_.filePath("far");
    QDir().mkpath(folder);
    document_->SetCaption(folder + "/page.html");
    for (const bool byTab : {false, true}) {
        const QString title = byTab ? "by the tab" : "by the timer";
        document_->Text1->SetText("<title>" + title + "</title>");
        DeadFolder dead(folder);
        byTab ? document_->pipeline.PreviewNow() : document_->pipeline.Refresh();
        EXPECT_TRUE(WaitFor([&] { return dead.Waiting() == 1; })) << byTab;
        QTest::keyClicks(document_->Text1, "typed");
        EXPECT_TRUE(document_->Text1->RawText().startsWith("typed")) << byTab;
        EXPECT_TRUE(document_->pipeline.IsWriting()) << byTab;
        dead.Revive();
        EXPECT_TRUE(WaitForTitle(title));
        EXPECT_EQ(dead.CallsOfTheMainThread(), 0) << byTab;
    }
}

TEST_F(PreviewPipelineTest, AGeneratedPageDoesntWaitForADeadFolderEither) {
    const QString folder = directory_.filePath("dead");
    ASSERT_TRUE(QDir().mkdir(folder));
    document_->SetCaption(folder + "/page.htm");
    DeadFolder dead(folder);
    ShowPageIn(bench_, document_->pipeline, "<title>A lesson</title>");
    EXPECT_TRUE(WaitFor([&] { return dead.Waiting() == 1; }));
    QTest::keyClicks(document_->Text1, "typed");
    EXPECT_EQ(document_->Text1->RawText(), "typed");
    dead.Revive();
    EXPECT_TRUE(WaitForTitle("A lesson"));
    EXPECT_EQ(dead.CallsOfTheMainThread(), 0);
}

TEST_F(PreviewPipelineTest, TheKeyboardReturnsFromThePageToTheText) {
    document_->Text1->SetText("<title>t</title>");
    Tick();
    QWidget* const inner = document_->browser.childAt(document_->browser.rect().center());
    ASSERT_NE(inner, nullptr);
    QTest::mouseClick(inner, Qt::LeftButton);
    ASSERT_TRUE(WaitFor([&] { return document_->browser.HasKeyboard(); }));
    Tick();
    EXPECT_TRUE(document_->Text1->hasFocus());
}

TEST_F(PreviewPipelineTest, TheKeyboardStaysWithOthers) {
    QLineEdit other(document_);
    other.show();
    other.setFocus();
    document_->Text1->SetText("x");
    Tick();
    EXPECT_TRUE(other.hasFocus());
    QWidget dialog;
    QLineEdit field(&dialog);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    field.setFocus();
    Tick();
    EXPECT_TRUE(field.hasFocus());
}

TEST_F(PreviewPipelineTest, AWindowMayCloseWhileItsFileIsWritten) {
    document_->Text1->SetText("x");
    document_->pipeline.Refresh();
    bench_.active.reset();
    EXPECT_TRUE(WaitFor([&] { return QFileInfo::exists(Site("caching.htm")); }));
}

}  // namespace
}  // namespace vellum::test

#include "preview/preview_pipeline.h"

#include "browser/browser_surface.h"
#include "editor/document.h"
#include "editor/workbench.h"
#include "settings/settings_keys.h"
#include "tests/preview/dead_folder.h"
#include "tests/support/test_workbench.h"
#include "tests/support/wait_for.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <csignal>
#include <gtest/gtest.h>

namespace vellum {
namespace {

QByteArray Read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray Script(int offset) {
    return "<SCRIPT language=\"Javascript\">\r\nsetTimeout('ScrollStart()',5)\r\nfunction ScrollStart() {\r\n"
           "window.scrollTo(0," +
           QByteArray::number(offset) + ")\r\n}</SCRIPT>\r\n";
}

class PreviewedDocument : public Document, public PreviewHost {
public:
    explicit PreviewedDocument(Workbench& workbench)
        : Document(workbench), browser(this), autoPreview(this), pipeline(workbench, *this, browser, autoPreview) {
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(Text1);
        layout->addWidget(&browser);
        resize(500, 500);
        autoPreview.setChecked(true);
        pipeline.SetInterval(3600 * 1000);  // tests give the ticks
    }

    void ResizeMe() override {}
    PreviewPipeline& Pipeline() override { return pipeline; }
    QTimer& Timer() const { return *findChild<QTimer*>("Timer2", Qt::FindDirectChildrenOnly); }

    BrowserSurface browser;
    QCheckBox autoPreview;
    PreviewPipeline pipeline;
};

class TestWorkbench : public test::TestWorkbench {
public:
    explicit TestWorkbench(const QString& directory) {
        website = directory + "/site";
        count = "0";
        QDir().mkpath(website);
    }

    Document* ActiveDocument() const override { return active.get(); }
    QWidget* Window() override { return active.get(); }
    void Smartcolor() override { ++colored; }
    Document* CreateDocument() override {
        if (usePreview) {
            active = std::make_unique<PreviewedDocument>(*this);
        } else {
            active = std::make_unique<test::PlainDocument>(*this);
        }
        active->show();
        return active.get();
    }
    void LoadPage(QString& html) override { vellum::LoadPage(*this, html); }

    int colored = 0;
    std::unique_ptr<Document> active;
};

class PreviewPipelineTest : public testing::Test {
protected:
    static void SetUpTestSuite() { PrepareBrowserEngine(); }

    void SetUp() override {
        ASSERT_TRUE(directory_.isValid());
        document_ = static_cast<PreviewedDocument*>(bench_.CreateDocument());
        document_->SetCaption("New 1");
        bench_.count = "1";
        document_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(document_));
    }

    // Lets a tick happen, and waits until the browser shows what it brings.
    void Tick() {
        QSignalSpy complete(&document_->browser, &BrowserSurface::NavigateComplete);
        document_->pipeline.Refresh();
        ASSERT_TRUE(test::WaitFor([&] { return !complete.isEmpty(); }));
        ASSERT_TRUE(complete.last().first().toBool());
    }

    void PreviewNow() {
        QSignalSpy complete(&document_->browser, &BrowserSurface::NavigateComplete);
        document_->pipeline.PreviewNow();
        ASSERT_TRUE(test::WaitFor([&] { return !complete.isEmpty(); }));
        ASSERT_TRUE(complete.last().first().toBool());
    }

    bool WaitForTitle(const QString& title) {
        return test::WaitFor([&] { return document_->browser.Title() == title; });
    }

    // A tick that must not write: waits until nothing can be on its way any more.
    void QuietTick() {
        document_->pipeline.Refresh();
        EXPECT_TRUE(test::WaitFor([&] { return !document_->pipeline.IsWriting(); }));
    }

    QString Site(const QString& name) const { return bench_.website + '/' + name; }

    // An external browser that writes its arguments, one a line, into a file.
    QString FakeBrowser() {
        const QString script = directory_.filePath("browser.sh");
        WriteFile(script, "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done > '" + Arguments().toUtf8() +
                              ".new'\nmv '" + Arguments().toUtf8() + ".new' '" + Arguments().toUtf8() + "'\n");
        QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return script;
    }

    // A default handler, first on the search path, that notes its process and its arguments and ends with `code`.
    void FakeDefaultHandler(int code) {
        const QString folder = directory_.filePath("bin");
        QDir().mkpath(folder);
        const QString script = folder + "/xdg-open";
        const QByteArray target = Arguments().toUtf8();
        QFile::remove(script);
        WriteFile(script, "#!/bin/sh\necho $$ > '" + target + ".pid'\nfor a in \"$@\"; do echo \"$a\"; done > '" +
                              target + "'\nexit " + QByteArray::number(code) + "\n");
        QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        if (!searchPath_) searchPath_ = qgetenv("PATH");
        qputenv("PATH", folder.toUtf8() + ':' + *searchPath_);
    }

    // What the handler was given, once it has ended.
    QByteArray GivenToDefaultHandler() {
        const bool ended = test::WaitFor([&] {
            const int process = Read(Arguments() + ".pid").trimmed().toInt();
            return process > 0 && ::kill(process, 0) != 0;
        });
        const QByteArray given = ended ? Read(Arguments()) : QByteArray("(still runs)");
        QFile::remove(Arguments());
        QFile::remove(Arguments() + ".pid");
        return given;
    }

    void TearDown() override {
        if (searchPath_) qputenv("PATH", *searchPath_);
    }

    QString Arguments() const { return directory_.filePath("arguments"); }

    QTemporaryDir directory_;
    TestWorkbench bench_{directory_.path()};
    PreviewedDocument* document_ = nullptr;

private:
    std::optional<QByteArray> searchPath_;
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
    document_->pipeline.SetInterval(1);
    EXPECT_TRUE(WaitForTitle("first"));
}

TEST_F(PreviewPipelineTest, TheTimerTakesItsPeriodFromTheRefreshRate) {
    for (const auto& [seconds, milliseconds] : {std::pair<int, int>{1, 1000}, {12, 12000}, {32, 32000}}) {
        bench_.RefreshRate = static_cast<std::int16_t>(seconds);
        PreviewPipeline pipeline(bench_, *document_, document_->browser, document_->autoPreview);
        EXPECT_EQ(document_->findChildren<QTimer*>("Timer2").last()->interval(), milliseconds);
    }
    for (const int impossible : {33, 0, -1}) {
        bench_.RefreshRate = static_cast<std::int16_t>(impossible);
        PreviewPipeline pipeline(bench_, *document_, document_->browser, document_->autoPreview);
        EXPECT_EQ(document_->findChildren<QTimer*>("Timer2").last()->interval(), 7000);
    }
}

TEST_F(PreviewPipelineTest, NothingIsShownInAWindowThatHasClosed) {
    document_->Text1->SetText("x");
    document_->pipeline.Refresh();
    document_->pipeline.Stop();
    EXPECT_FALSE(document_->Timer().isActive());
    EXPECT_TRUE(test::WaitFor([&] { return !document_->pipeline.IsWriting(); }));
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
    ASSERT_TRUE(test::WaitFor([&] { return timer.remainingTime() < 3600 * 1000 - 50; }));
    QTest::keyClicks(document_->Text1, "abc");
    EXPECT_LT(timer.remainingTime(), 3600 * 1000 - 50);
}

TEST_F(PreviewPipelineTest, AChangeDuringTheWriteKeepsTheTimerOn) {
    document_->Text1->SetText("x");
    QSignalSpy complete(&document_->browser, &BrowserSurface::NavigateComplete);
    document_->pipeline.Refresh();
    ASSERT_TRUE(document_->pipeline.IsWriting());
    QTest::keyClicks(document_->Text1, "y");
    ASSERT_TRUE(test::WaitFor([&] { return !complete.isEmpty(); }));
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
    // Behind the page's own script, which scrolls to the top.
    document_->browser.Evaluate("setTimeout(function(){window.scrollTo(0,640)},50)", [](const QString&) {});
    ASSERT_TRUE(test::WaitFor([&] { return document_->browser.ScrollTop() == 640; }));
    Tick();
    EXPECT_TRUE(Read(Site("caching.htm")).endsWith(Script(640)));
    EXPECT_TRUE(test::WaitFor([&] { return document_->browser.ScrollTop() == 640; }));
}

TEST_F(PreviewPipelineTest, AfterTheManualAPageBeginsAtItsTop) {
    const QString manual =
        "<html><head><title>Vellumcraft Manual</title></head><body>"
        "<div style=\"height:5000px\">x</div></body></html>";
    for (const bool byTab : {false, true}) {
        QSignalSpy complete(&document_->browser, &BrowserSurface::NavigateComplete);
        LoadPage(bench_, manual);
        ASSERT_TRUE(test::WaitFor([&] { return !complete.isEmpty(); }));
        ASSERT_EQ(document_->browser.Title(), "Vellumcraft Manual");
        document_->browser.Evaluate("window.scrollTo(0,640)", [](const QString&) {});
        ASSERT_TRUE(test::WaitFor([&] { return document_->browser.ScrollTop() == 640; }));
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
    WriteSetting(bench_.Settings(), keys::browser1, FakeBrowser());
    OpenInExternalBrowser(bench_, 0);
    EXPECT_TRUE(test::WaitFor([&] { return QFileInfo::exists(Arguments()); }));
    EXPECT_EQ(Read(Arguments()), Site("caching-preview.htm").toUtf8() + "\n");
    QString cachePath;
    document_->pipeline.VisualEdit(cachePath);
    EXPECT_EQ(cachePath, Site("caching-preview.htm"));
    LoadPage(bench_, "<title>A lesson</title>");
    EXPECT_TRUE(WaitForTitle("A lesson"));
    EXPECT_EQ(document_->browser.Path(), Site("caching-preview.htm"));
    EXPECT_EQ(Read(Site("caching.htm")), "as saved");
}

TEST_F(PreviewPipelineTest, NorByThePreviewOfAnother) {
    WriteFile(Site("caching.htm"), "as saved");
    test::PlainDocument other(bench_);
    other.setParent(document_);  // the window that holds all documents
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
    EXPECT_TRUE(test::WaitFor([&] { return document_->browser.Path() == folder + "/cachingpage"; }));
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
    EXPECT_TRUE(test::WaitFor([&] { return !document_->pipeline.IsWriting(); }));
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
    EXPECT_TRUE(test::WaitFor([&] { return !document_->pipeline.IsWriting(); }));
    EXPECT_EQ(Read(Site("caching.htm")).size(), 100000 * 13 + 2 + Script(0).size());
}

TEST_F(PreviewPipelineTest, AFolderThatDoesntAnswerHoldsNobodyUp) {
    const QString folder = directory_.filePath("far");
    QDir().mkpath(folder);
    document_->SetCaption(folder + "/page.html");
    for (const bool byTab : {false, true}) {
        const QString title = byTab ? "by the tab" : "by the timer";
        document_->Text1->SetText("<title>" + title + "</title>");
        test::DeadFolder dead(folder);
        byTab ? document_->pipeline.PreviewNow() : document_->pipeline.Refresh();
        EXPECT_TRUE(test::WaitFor([&] { return dead.Waiting() == 1; })) << byTab;
        QTest::keyClicks(document_->Text1, "typed");
        EXPECT_TRUE(document_->Text1->RawText().startsWith("typed")) << byTab;
        EXPECT_TRUE(document_->pipeline.IsWriting()) << byTab;
        dead.Revive();
        EXPECT_TRUE(WaitForTitle(title));
        EXPECT_EQ(dead.CallsOfTheMainThread(), 0) << byTab;
    }
}

TEST_F(PreviewPipelineTest, TheKeyboardReturnsFromThePageToTheText) {
    document_->Text1->SetText("<title>t</title>");
    Tick();
    QWidget* const inner = document_->browser.childAt(document_->browser.rect().center());
    ASSERT_NE(inner, nullptr);
    QTest::mouseClick(inner, Qt::LeftButton);
    ASSERT_TRUE(test::WaitFor([&] { return document_->browser.HasKeyboard(); }));
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
    EXPECT_TRUE(test::WaitFor([&] { return QFileInfo::exists(Site("caching.htm")); }));
}

TEST_F(PreviewPipelineTest, LoadPageShowsAPageUntilTheTextChanges) {
    document_->browser.hide();
    LoadPage(bench_, "<title>A lesson</title>\r\n");
    EXPECT_TRUE(WaitForTitle("A lesson"));
    EXPECT_EQ(Read(Site("caching.htm")), "<title>A lesson</title>\r\n");
    EXPECT_TRUE(document_->browser.isVisible());
    EXPECT_FALSE(document_->Timer().isActive());
    EXPECT_EQ(bench_.count, "1");
    QTest::keyClicks(document_->Text1, "y");
    EXPECT_TRUE(document_->Timer().isActive());
}

TEST_F(PreviewPipelineTest, EachWindowShowsItsOwnFirstPage) {
    PreviewedDocument second(bench_);
    second.show();
    PreviewedDocument* const windows[] = {&second, document_};
    for (PreviewedDocument* window : windows) {
        window->browser.hide();
        window->Timer().start();
    }
    for (PreviewedDocument* window : windows) ShowPageIn(bench_, window->pipeline, "<title>First</title>");
    for (PreviewedDocument* window : windows) {
        EXPECT_FALSE(window->Timer().isActive());
        EXPECT_TRUE(window->browser.isVisible());
        EXPECT_EQ(window->browser.Path(), Site("caching.htm"));
        EXPECT_TRUE(test::WaitFor([&] { return window->browser.Title() == "First"; }));
    }
}

TEST_F(PreviewPipelineTest, APageForAnotherWindowLeavesTheActiveOneAlone) {
    PreviewedDocument second(bench_);
    second.show();
    ShowPageIn(bench_, second.pipeline, "<title>First</title>");
    EXPECT_TRUE(test::WaitFor([&] { return second.browser.Title() == "First"; }));
    EXPECT_EQ(document_->browser.Path(), "");
    EXPECT_TRUE(document_->Timer().isActive());
}

TEST_F(PreviewPipelineTest, LoadPageOvertakesAPreviewOnItsWay) {
    document_->Text1->SetText("<title>mine</title>");
    document_->pipeline.Refresh();
    LoadPage(bench_, "<title>A lesson</title>");
    EXPECT_TRUE(WaitForTitle("A lesson"));
    EXPECT_TRUE(test::WaitFor([&] { return !document_->pipeline.IsWriting(); }));
    EXPECT_EQ(Read(Site("caching.htm")), "<title>A lesson</title>");
    EXPECT_FALSE(document_->Timer().isActive());
}

TEST_F(PreviewPipelineTest, LoadPageMakesADocumentWhenThereIsNone) {
    bench_.active.reset();
    bench_.count = "0";
    bench_.NewDocCount = 4;
    LoadPage(bench_, "<title>A lesson</title>");
    ASSERT_NE(bench_.ActiveDocument(), nullptr);
    EXPECT_EQ(bench_.count, "1");
    EXPECT_EQ(bench_.NewDocCount, 5);
    EXPECT_EQ(bench_.ActiveDocument()->Caption(), "New 5");
    EXPECT_EQ(bench_.colored, 1);
    auto* const made = dynamic_cast<PreviewedDocument*>(bench_.ActiveDocument());
    ASSERT_NE(made, nullptr);
    EXPECT_TRUE(test::WaitFor([&] { return made->browser.Title() == "A lesson"; }));
}

TEST_F(PreviewPipelineTest, LoadPageShowsThePageEvenWhenTheFolderTakesNoFiles) {
    bench_.website = directory_.filePath("missing");
    LoadPage(bench_, "<title>A lesson</title>");
    EXPECT_TRUE(WaitForTitle("A lesson"));
    EXPECT_TRUE(bench_.prompts.messages.isEmpty());
}

TEST_F(PreviewPipelineTest, WithoutPreviewLoadPageGoesToTheFirstBrowser) {
    bench_.usePreview = false;
    bench_.active.reset();
    bench_.count = "0";
    WriteSetting(bench_.Settings(), keys::browser1, FakeBrowser() + " -x");
    LoadPage(bench_, "<p>A lesson</p>");
    EXPECT_TRUE(test::WaitFor([&] { return QFileInfo::exists(Arguments()); }));
    EXPECT_EQ(Read(Arguments()), "-x\n" + Site("caching.htm").toUtf8() + "\n");
    EXPECT_EQ(Read(Site("caching.htm")), "<p>A lesson</p>");
    EXPECT_EQ(bench_.ActiveDocument(), nullptr);
    EXPECT_EQ(bench_.count, "0");
}

TEST_F(PreviewPipelineTest, LoadPageTellsWhenThatBrowserDoesntStart) {
    bench_.usePreview = false;
    WriteSetting(bench_.Settings(), keys::browser1, directory_.filePath("no-such-program"));
    LoadPage(bench_, "x");
    EXPECT_EQ(bench_.prompts.messages, QStringList{"Unable to load browser specified in Settings."});
}

TEST_F(PreviewPipelineTest, AnExternalBrowserGetsTheTextWithoutTheScript) {
    const SettingKey* const browsers[] = {&keys::browser1, &keys::browser2, &keys::browser3};
    document_->SetCaption(directory_.filePath("my page.html"));
    document_->Text1->SetText("<p>x</p>\r\n<p>y</p>");
    for (int index = 0; index < 3; ++index) {
        QFile::remove(Arguments());
        for (const SettingKey* key : browsers) WriteSetting(bench_.Settings(), *key, "None");
        WriteSetting(bench_.Settings(), *browsers[index], FakeBrowser());
        OpenInExternalBrowser(bench_, index);
        EXPECT_TRUE(test::WaitFor([&] { return QFileInfo::exists(Arguments()); }));
        EXPECT_EQ(Read(Arguments()), directory_.filePath("caching.html").toUtf8() + "\n");
    }
    EXPECT_EQ(Read(directory_.filePath("caching.html")), "<p>x</p>\r\n<p>y</p>");
    EXPECT_TRUE(bench_.prompts.messages.isEmpty());
}

TEST_F(PreviewPipelineTest, AnExternalBrowserNeedsAText) {
    OpenInExternalBrowser(bench_, 0);
    EXPECT_EQ(bench_.prompts.messages, QStringList{"There is nothing to show!"});
    EXPECT_FALSE(QFileInfo::exists(Site("caching.htm")));
}

TEST_F(PreviewPipelineTest, AnExternalBrowserThatDoesntStartIsTold) {
    document_->Text1->SetText("x");
    WriteSetting(bench_.Settings(), keys::browser2, directory_.filePath("no-such-program"));
    OpenInExternalBrowser(bench_, 1);
    EXPECT_EQ(bench_.prompts.messages, QStringList{"Unable to start browser."});
}

TEST_F(PreviewPipelineTest, WithoutASettingTheDefaultBrowserIsAnnounced) {
    FakeDefaultHandler(0);
    document_->Text1->SetText("x");
    for (const char* none : {"None", ""}) {
        bench_.prompts.messages.clear();
        WriteSetting(bench_.Settings(), keys::browser3, none);
        OpenInExternalBrowser(bench_, 2);
        EXPECT_EQ(GivenToDefaultHandler(), Site("caching.htm").toUtf8() + "\n");
        EXPECT_EQ(bench_.prompts.messages,
                  QStringList{"No specific browser specified in settings dialog box. Using default browser."});
        EXPECT_EQ(Read(Site("caching.htm")), "x");
    }
}

TEST_F(PreviewPipelineTest, ADefaultBrowserThatDoesntStartIsTold) {
    FakeDefaultHandler(3);
    document_->Text1->SetText("x");
    OpenInExternalBrowser(bench_, 0);
    EXPECT_EQ(GivenToDefaultHandler(), Site("caching.htm").toUtf8() + "\n");
    EXPECT_EQ(bench_.prompts.messages,
              (QStringList{"No specific browser specified in settings dialog box. Using default browser.",
                           "Unable to start browser."}));
}

TEST_F(PreviewPipelineTest, WithoutPreviewAndBrowserLoadPageGoesToTheDefaultInSilence) {
    bench_.usePreview = false;
    for (const int code : {0, 3}) {
        for (const char* none : {"None", ""}) {
            FakeDefaultHandler(code);
            WriteSetting(bench_.Settings(), keys::browser1, none);
            LoadPage(bench_, "<p>A lesson</p>");
            EXPECT_EQ(GivenToDefaultHandler(), Site("caching.htm").toUtf8() + "\n");
            EXPECT_EQ(Read(Site("caching.htm")), "<p>A lesson</p>");
            EXPECT_TRUE(bench_.prompts.messages.isEmpty());
        }
    }
}

TEST_F(PreviewPipelineTest, TheVisualEditorRefusesFramesets) {
    for (const char* tag : {"<FRAMESET rows=\"*\">", "<frameset>", "x<FrameSet"}) {
        bench_.prompts.messages.clear();
        document_->Text1->SetText(tag);
        QString cachePath = "before";
        document_->pipeline.VisualEdit(cachePath);
        EXPECT_EQ(bench_.prompts.messages, QStringList{"Cannot load Frameset documents"}) << tag;
        EXPECT_EQ(cachePath, "before");
    }
    EXPECT_FALSE(QFileInfo::exists(Site("caching.htm")));
}

TEST_F(PreviewPipelineTest, TheVisualEditorGetsACopyInTheWebsiteDirectory) {
    document_->SetCaption(directory_.filePath("b.html"));
    document_->Text1->SetText("<p>x</p>\r\n");
    QString cachePath;
    document_->pipeline.VisualEdit(cachePath);
    EXPECT_EQ(cachePath, Site("caching.htm"));
    EXPECT_EQ(Read(cachePath), "<p>x</p>\r\n");
    EXPECT_TRUE(bench_.prompts.messages.isEmpty());
}

}  // namespace
}  // namespace vellum

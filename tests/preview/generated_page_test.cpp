#include "preview/generated_page.h"

#include "tests/preview/preview_fixture.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

class GeneratedPageTest : public PreviewFixture {};

TEST_F(GeneratedPageTest, LoadPageShowsAPageUntilTheTextChanges) {
    document_->browser.hide();
    LoadPage(bench_, "<title>A lesson</title>\r\n");
    EXPECT_TRUE(WaitForTitle("A lesson"));
    EXPECT_EQ(Read(Site("caching.htm")), "<title>A lesson</title>\r\n");
    EXPECT_TRUE(document_->browser.isVisible());
    EXPECT_FALSE(document_->Timer().isActive());
    EXPECT_EQ(bench_.count, 1);
    QTest::keyClicks(document_->Text1, "y");
    EXPECT_TRUE(document_->Timer().isActive());
}

TEST_F(GeneratedPageTest, EachWindowShowsItsOwnFirstPage) {
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
        EXPECT_TRUE(WaitFor([&] { return window->browser.Title() == "First"; }));
        EXPECT_TRUE(window->browser.isVisible());
        EXPECT_EQ(window->browser.Path(), Site("caching.htm"));
    }
}

TEST_F(GeneratedPageTest, APageForAnotherWindowLeavesTheActiveOneAlone) {
    PreviewedDocument second(bench_);
    second.show();
    ShowPageIn(bench_, second.pipeline, "<title>First</title>");
    EXPECT_TRUE(WaitFor([&] { return second.browser.Title() == "First"; }));
    EXPECT_EQ(document_->browser.Path(), "");
    EXPECT_TRUE(document_->Timer().isActive());
}

TEST_F(GeneratedPageTest, LoadPageOvertakesAPreviewOnItsWay) {
    document_->Text1->SetText("<title>mine</title>");
    document_->pipeline.Refresh();
    LoadPage(bench_, "<title>A lesson</title>");
    EXPECT_TRUE(WaitForTitle("A lesson"));
    EXPECT_TRUE(WaitFor([&] { return !document_->pipeline.IsWriting(); }));
    EXPECT_EQ(Read(Site("caching.htm")), "<title>A lesson</title>");
    EXPECT_FALSE(document_->Timer().isActive());
}

TEST_F(GeneratedPageTest, AStoppedPipelineShowsNoPageAnyMore) {
    ShowPageIn(bench_, document_->pipeline, "<title>First</title>");
    document_->pipeline.Stop();
    document_->browser.hide();
    document_->Text1->SetText("written after the page");
    document_->pipeline.Refresh();
    ASSERT_TRUE(WaitFor([&] { return !document_->pipeline.IsWriting(); }));
    EXPECT_FALSE(document_->browser.isVisible());
}

TEST_F(GeneratedPageTest, LoadPageMakesADocumentWhenThereIsNone) {
    bench_.active.reset();
    bench_.count = 0;
    LoadPage(bench_, "<title>A lesson</title>");
    ASSERT_NE(bench_.ActiveDocument(), nullptr);
    EXPECT_EQ(bench_.count, 1);
    auto* const made = dynamic_cast<PreviewedDocument*>(bench_.ActiveDocument());
    ASSERT_NE(made, nullptr);
    EXPECT_TRUE(WaitFor([&] { return made->browser.Title() == "A lesson"; }));
}

TEST_F(GeneratedPageTest, LoadPageShowsThePageEvenWhenTheFolderTakesNoFiles) {
    bench_.website = directory_.filePath("missing");
    LoadPage(bench_, "<title>A lesson</title>");
    EXPECT_TRUE(WaitForTitle("A lesson"));
    EXPECT_TRUE(bench_.prompts.messages.isEmpty());
}

TEST_F(GeneratedPageTest, WithoutPreviewLoadPageGoesToTheFirstBrowser) {
    bench_.usePreview = false;
    bench_.active.reset();
    bench_.count = 0;
    WriteSetting(bench_.Settings(), keys::browser1, FakeBrowser() + " -x");
    LoadPage(bench_, "<p>A lesson</p>");
    EXPECT_TRUE(WaitFor([&] { return QFileInfo::exists(Arguments()); }));
    EXPECT_EQ(Read(Arguments()), "-x\n" + Site("caching.htm").toUtf8() + "\n");
    EXPECT_EQ(Read(Site("caching.htm")), "<p>A lesson</p>");
    EXPECT_EQ(bench_.ActiveDocument(), nullptr);
    EXPECT_EQ(bench_.count, 0);
}

TEST_F(GeneratedPageTest, LoadPageTellsWhenThatBrowserDoesntStart) {
    bench_.usePreview = false;
    WriteSetting(bench_.Settings(), keys::browser1, directory_.filePath("no-such-program"));
    LoadPage(bench_, "x");
    EXPECT_EQ(bench_.prompts.messages, QStringList{"Unable to load browser specified in Settings."});
}

TEST_F(GeneratedPageTest, WithoutPreviewAndBrowserLoadPageGoesToTheDefaultInSilence) {
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

TEST_F(GeneratedPageTest, LoadPageNeverOverwritesADocument) {
    WriteFile(Site("caching.htm"), "as saved");
    document_->SetCaption(Site("caching.htm"));
    LoadPage(bench_, "<title>A lesson</title>");
    EXPECT_TRUE(WaitForTitle("A lesson"));
    EXPECT_EQ(document_->browser.Path(), Site("caching-preview.htm"));
    EXPECT_EQ(Read(Site("caching.htm")), "as saved");
}

}  // namespace
}  // namespace vellum::test

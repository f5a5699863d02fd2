#include "preview/external_browser.h"

#include "tests/preview/preview_fixture.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

class ExternalBrowserTest : public PreviewFixture {};

TEST_F(ExternalBrowserTest, AnExternalBrowserGetsTheTextWithoutTheScript) {
    const SettingKey* const browsers[] = {&keys::browser1, &keys::browser2, &keys::browser3};
    document_->SetCaption(directory_.filePath("my page.html"));
    document_->Text1->SetText("<p>x</p>\r\n<p>y</p>");
    for (int index = 0; index < 3; ++index) {
        QFile::remove(Arguments());
        for (const SettingKey* key : browsers) WriteSetting(bench_.Settings(), *key, "None");
        WriteSetting(bench_.Settings(), *browsers[index], FakeBrowser());
        OpenInExternalBrowser(bench_, index);
        EXPECT_TRUE(WaitFor([&] { return QFileInfo::exists(Arguments()); }));
        EXPECT_EQ(Read(Arguments()), directory_.filePath("caching.html").toUtf8() + "\n");
    }
    EXPECT_EQ(Read(directory_.filePath("caching.html")), "<p>x</p>\r\n<p>y</p>");
    EXPECT_TRUE(bench_.prompts.messages.isEmpty());
}

TEST_F(ExternalBrowserTest, AnExternalBrowserNeedsAText) {
    OpenInExternalBrowser(bench_, 0);
    EXPECT_EQ(bench_.prompts.messages, QStringList{"There is nothing to show!"});
    EXPECT_FALSE(QFileInfo::exists(Site("caching.htm")));
}

TEST_F(ExternalBrowserTest, AnExternalBrowserThatDoesntStartIsTold) {
    document_->Text1->SetText("x");
    WriteSetting(bench_.Settings(), keys::browser2, directory_.filePath("no-such-program"));
    OpenInExternalBrowser(bench_, 1);
    EXPECT_EQ(bench_.prompts.messages, QStringList{"Unable to start browser."});
}

TEST_F(ExternalBrowserTest, WithoutASettingTheDefaultBrowserIsAnnounced) {
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

TEST_F(ExternalBrowserTest, ADefaultBrowserThatDoesntStartIsTold) {
    FakeDefaultHandler(3);
    document_->Text1->SetText("x");
    OpenInExternalBrowser(bench_, 0);
    EXPECT_EQ(GivenToDefaultHandler(), Site("caching.htm").toUtf8() + "\n");
    EXPECT_EQ(bench_.prompts.messages,
              (QStringList{"No specific browser specified in settings dialog box. Using default browser.",
                           "Unable to start browser."}));
}

TEST_F(ExternalBrowserTest, AnExternalBrowserNeverOverwritesTheDocument) {
    WriteFile(Site("caching.htm"), "as saved");
    document_->SetCaption(Site("caching.htm"));
    document_->Text1->SetText("<p>changed</p>");
    WriteSetting(bench_.Settings(), keys::browser1, FakeBrowser());
    OpenInExternalBrowser(bench_, 0);
    EXPECT_TRUE(WaitFor([&] { return QFileInfo::exists(Arguments()); }));
    EXPECT_EQ(Read(Arguments()), Site("caching-preview.htm").toUtf8() + "\n");
    EXPECT_EQ(Read(Site("caching.htm")), "as saved");
}

}  // namespace
}  // namespace vellum::test

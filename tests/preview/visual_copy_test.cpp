#include "preview/visual_copy.h"

#include "tests/preview/preview_fixture.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

class VisualCopyTest : public PreviewFixture {};

TEST_F(VisualCopyTest, RefusesFramesets) {
    for (const char* tag : {"<FRAMESET rows=\"*\">", "<frameset>", "x<FrameSet"}) {
        bench_.prompts.messages.clear();
        document_->Text1->SetText(tag);
        EXPECT_EQ(WriteVisualCopy(bench_, *document_), "") << tag;
        EXPECT_EQ(bench_.prompts.messages, QStringList{"Cannot load Frameset documents"}) << tag;
    }
    EXPECT_FALSE(QFileInfo::exists(Site("caching.htm")));
}

TEST_F(VisualCopyTest, StandsInTheWebsiteDirectory) {
    document_->SetCaption(directory_.filePath("b.html"));
    document_->Text1->SetText("<p>x</p>\r\n");
    EXPECT_EQ(WriteVisualCopy(bench_, *document_), Site("caching.htm"));
    EXPECT_EQ(Read(Site("caching.htm")), "<p>x</p>\r\n");
    EXPECT_TRUE(bench_.prompts.messages.isEmpty());
}

TEST_F(VisualCopyTest, NeverOverwritesTheDocument) {
    WriteFile(Site("caching.htm"), "as saved");
    document_->SetCaption(Site("caching.htm"));
    document_->Text1->SetText("x");
    EXPECT_EQ(WriteVisualCopy(bench_, *document_), Site("caching-preview.htm"));
    EXPECT_EQ(Read(Site("caching.htm")), "as saved");
}

TEST_F(VisualCopyTest, TellsWhenItCantBeWritten) {
    bench_.website = directory_.filePath("missing");
    document_->Text1->SetText("x");
    EXPECT_EQ(WriteVisualCopy(bench_, *document_), "");
    EXPECT_EQ(bench_.prompts.messages, QStringList{"Cannot save file.  It may be locked or read-only."});
}

}  // namespace
}  // namespace vellum::test

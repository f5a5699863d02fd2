// The panel over names that are no text.
#include "files/file_facts.h"
#include "files/file_names.h"
#include "files/safe_write.h"
#include "tests/support/remove_all.h"
#include "tests/website/website_fixture.h"
#include "website/propform.h"

namespace vellum {
namespace {

using test::InModal;

// A folder and a file whose names are no text.
class OddBytes : public test::WebsiteFixture {
protected:
    void SetUp() override {
        WebsiteFixture::SetUp();
        ASSERT_TRUE(vellum::MakeFolder(odd));
        ASSERT_TRUE(WriteFileSafely(page, "precious"));
    }
    void TearDown() override { test::RemoveAll(folder.path()); }
    // Goes through the directory list, as a person does.
    void EnterOddFolder() {
        ASSERT_TRUE(panel.SetDirectory(folder.filePath("site")));
        const QString shown = "m" + QString(QChar(0xFFFD)) + "hle";
        const auto rows = [&] { return panel.Dir1->findItems(shown, Qt::MatchExactly); };
        ASSERT_TRUE(QTest::qWaitFor([&] { return rows().size() == 1; }, patience));
        const QPoint place = panel.Dir1->visualItemRect(rows().first()).center();
        QTest::mouseClick(panel.Dir1->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(panel.Dir1->viewport(), Qt::LeftButton, {}, place);
        ASSERT_EQ(panel.FilePath(), odd);
        ASSERT_TRUE(QTest::qWaitFor([this] { return panel.File2->Names().size() == 1; }, patience));
    }

    const QString name = DecodeFileName("caf\xE9.htm");
    const QString odd = Place(DecodeFileName("m\xFChle"));
    const QString page = odd + "/" + name;
};

TEST_F(OddBytes, AreListedAndOpened) {
    EnterOddFolder();
    EXPECT_EQ(panel.File2->model()->index(0, 0).data().toString(), "caf" + QString(QChar(0xFFFD)) + ".htm");
    DoubleClick(name);
    EXPECT_EQ(bench.opened, QStringList({page}));
}

TEST_F(OddBytes, AreDeletedAndNoOthers) {
    const QString likeIt = odd + "/" + ReadableName(name);
    ASSERT_TRUE(WriteFileSafely(likeIt, "another"));
    ASSERT_TRUE(panel.SetDirectory(odd));
    ASSERT_TRUE(QTest::qWaitFor([this] { return panel.File2->Names().size() == 2; }, patience));
    Select(name);
    bench.prompts.answers = {Answer::Yes};
    commands->DeleteFile();
    EXPECT_FALSE(FactsOf(page));
    EXPECT_TRUE(FactsOf(likeIt));
    EXPECT_EQ(bench.prompts.messages, QStringList());
}

TEST_F(OddBytes, AreRenamedAndHaveProperties) {
    EnterOddFolder();
    Select(name);
    InModal<propform>([this] { commands->ShowProperties(); },
                      [this](propform& form) {
                          EXPECT_EQ(form.txtName->text(), ReadableName(name));
                          EXPECT_EQ(form.txtSize->text(), "8 Bytes");
                      });
    bench.prompts.inputs = {"caf\u00E9.htm"};
    commands->RenameFile();
    ASSERT_TRUE(QTest::qWaitFor([this] { return panel.File2->Names() == QStringList("caf\u00E9.htm"); }, patience));
}

TEST_F(OddBytes, AFolderIsMadeAmongThem) {
    EnterOddFolder();
    bench.prompts.inputs = {"new place"};
    commands->MakeDirectory();
    EXPECT_TRUE(IsFolder(odd + "/new place"));
}

}  // namespace
}  // namespace vellum

// Open From Internet of the real main window, from the menu to the document.
#include "tests/shell/main_window_fixture.h"
#include "tests/support/page_server.h"
#include "tests/support/wait_for.h"

namespace vellum::test {
namespace {

// Looks at the window from time to time while a command runs, and once it sees what it waits for, does something.
void While(const std::function<void()>& command, const std::function<bool()>& seen, const std::function<void()>& act) {
    bool acted = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (acted || !seen()) return;
        acted = true;
        act();
    });
    look.start(1);
    command();
    EXPECT_TRUE(acted);
}

// The main window without the tips, with a count of how often it paints markup.
class PaintingWindow : public MDIform1 {
public:
    using MDIform1::MDIform1;

    void Smartcolor() override {
        ++colored;
        MDIform1::Smartcolor();
    }
    void startup() override {}

    int colored = 0;
};

class InternetCommand : public WindowFixture<PaintingWindow> {
protected:
    void SetUp() override { server.pages["/hangs"] = {.bytes = {}, .hangs = true}; }

    void Fetch(const QString& path) {
        prompts.inputs = {server.Address(path)};
        Trigger("mnuInternetItem");
    }

    // Acts while the page that never comes is waited for.
    void WhileItHangs(const std::function<void()>& act) {
        While([this] { Fetch("/hangs"); }, [this] { return server.asked.contains("/hangs"); }, act);
    }

    PageServer server;
};

TEST_F(InternetCommand, OpensThePageAsANewDocument) {
    server.pages["/"] = {Reply("<p>one</p>\n<p>two</p>\r\n")};
    Open();
    const int colored = window->colored;
    Fetch("/");
    EXPECT_EQ(window->OpenDocCount(), 2);
    EXPECT_EQ(Active().Caption(), "New 2");
    EXPECT_EQ(Active().Text1->Text(), "<p>one</p>\r\n<p>two</p>\r\n");
    EXPECT_FALSE(Active().Saver()) << "no file has it";
    EXPECT_TRUE(Active().Text1->hasFocus());
    EXPECT_TRUE(window->isEnabled());
    EXPECT_GT(window->colored, colored + 1) << "once blank, and once with its text";
    EXPECT_EQ(Panel(4), "");
    EXPECT_EQ(Panel(3), "");
    EXPECT_TRUE(prompts.messages.isEmpty());
}

TEST_F(InternetCommand, NeedsNoOpenDocument) {
    server.pages["/"] = {Reply("page")};
    Open();
    Trigger("mnuCloseAll");
    Fetch("/");
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_EQ(Active().Text1->Text(), "page");
}

TEST_F(InternetCommand, AnEmptyAnswerEndsIt) {
    Open();
    prompts.inputs = {""};
    Trigger("mnuInternetItem");
    Trigger("mnuInternetItem");
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_EQ(prompts.initials, (QStringList{"", ""}));
    EXPECT_TRUE(prompts.messages.isEmpty());
}

TEST_F(InternetCommand, TellsWhenNoPageComes) {
    Open();
    prompts.inputs = {"file:///etc/hostname"};
    Trigger("mnuInternetItem");
    EXPECT_EQ(prompts.messages, QStringList("Unable to Establish Connection"));
    EXPECT_EQ(Active().Caption(), "New 2");
    EXPECT_EQ(Active().Text1->Text(), "");
    EXPECT_EQ(window->OpenDocCount(), 2);
    EXPECT_EQ(Panel(4), "");
    EXPECT_TRUE(window->isEnabled());
}

TEST_F(InternetCommand, ShowsWhatItDoesInAWindowThatIsOffAndPaints) {
    Open();
    WhileItHangs([this] {
        EXPECT_FALSE(window->isEnabled());
        EXPECT_EQ(Panel(4), "Getting code from online web page.");
        const QObject& owner = *window;
        const QPalette colors = owner.findChild<QLabel*>("StatusBar1.Panels(4)")->palette();
        EXPECT_EQ(colors.color(QPalette::Disabled, QPalette::WindowText),
                  colors.color(QPalette::Active, QPalette::WindowText));
        EXPECT_EQ(window->OpenDocCount(), 2);
        QTest::keyClicks(Active().Text1, "x");
        EXPECT_EQ(Active().Text1->Text(), "");
        int painted = 0;
        class Painted : public QObject {
        public:
            explicit Painted(int& count) : count_(count) {}
            bool eventFilter(QObject* /*watched*/, QEvent* event) override {
                count_ += event->type() == QEvent::Paint;
                return false;
            }

        private:
            int& count_;
        } painting(painted);
        window->installEventFilter(&painting);
        window->update();
        EXPECT_TRUE(WaitFor([&] { return painted > 0; }));
        QTest::keyClick(window.get(), Qt::Key_Escape);
    });
}

TEST_F(InternetCommand, EscGivesItUp) {
    Open();
    WhileItHangs([this] { QTest::keyClick(window.get(), Qt::Key_Escape); });
    EXPECT_EQ(prompts.messages, QStringList("Unable to Establish Connection"));
    EXPECT_EQ(Active().Text1->Text(), "");
    EXPECT_TRUE(window->isEnabled());
    EXPECT_TRUE(Active().Text1->hasFocus());
    EXPECT_EQ(Panel(4), "");
    server.pages["/"] = {Reply("another")};
    Fetch("/");
    EXPECT_EQ(Active().Text1->Text(), "another");
}

TEST_F(InternetCommand, ClosingTheMainWindowGivesItUpToo) {
    Open();
    WhileItHangs([this] { EXPECT_TRUE(window->close()); });
    EXPECT_TRUE(prompts.messages.isEmpty());
    EXPECT_EQ(window->ActiveDocument(), nullptr);
}

}  // namespace
}  // namespace vellum::test

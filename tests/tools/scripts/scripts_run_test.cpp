// What the engine of the preview makes of the scripts.
#include "browser/browser_engine.h"
#include "browser/browser_surface.h"
#include "tests/support/page_of.h"
#include "tests/support/page_server.h"
#include "tests/support/wait_for.h"
#include "tools/scripts/frm_insert_script.h"
#include "tools/scripts/in_script.h"
#include "tools/scripts/premade_scripts.h"
#include "tools/scripts/script_wizards.h"

#include <QDate>
#include <QFile>
#include <QImage>
#include <QLocale>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

// Keeps what the console would show as errors, those of a script that can't be read included.
constexpr auto errorKeeper = "<script>var errors = []; onerror = function(message) { errors.push(message) }</script>";

QString Js(const QString& name) {
    return PremadeScript(ScriptLanguage::Javascript, name);
}

class RunningScripts : public testing::Test {
protected:
    static void SetUpTestSuite() { PrepareBrowserEngine(); }

    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        surface_.resize(400, 300);
        surface_.show();
        surface_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&surface_));
    }

    [[nodiscard]] static QByteArray Page(const QString& title, const QString& body, const QString& head = {}) {
        return QString(
                   "<html><head><title>%1</title>%2%3</head><body bgcolor=\"#123456\" style=\"margin:0\">%4</body>"
                   "</html>")
            .arg(title, errorKeeper, head, body)
            .toUtf8();
    }

    QString Write(const QString& name, const QByteArray& bytes) const {
        QFile file(folder_.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    void WritePicture(const QString& name, const QColor& color) const {
        QImage picture(100, 50, QImage::Format_RGB32);
        picture.fill(color);
        ASSERT_TRUE(picture.save(folder_.filePath(name)));
    }

    // Goes to a page that has this title, and waits until it is there as a whole.
    void Go(const QString& address, const QString& title) {
        surface_.Navigate(address);
        ASSERT_TRUE(WaitForTitle(title)) << surface_.Title().toStdString();
        ASSERT_TRUE(WaitForRun("document.title + ', ' + document.readyState", title + ", complete"));
    }
    void Show(const QString& body, const QString& head = {}) {
        title_ = QString("page %1").arg(++shown_);
        Go(Write("page.html", Page(title_, body, head)), title_);
    }

    // What a script comes to in the page.
    QVariant Run(const QString& script) const {
        bool done = false;
        QVariant result;
        PageOf(surface_)->runJavaScript(script, [&](const QVariant& value) {
            result = value;
            done = true;
        });
        EXPECT_TRUE(WaitFor([&] { return done; })) << script.toStdString();
        return result;
    }
    bool WaitForRun(const QString& script, const QVariant& value) const {
        return WaitFor([&] { return Run(script) == value; });
    }
    bool WaitForTitle(const QString& title) {
        return WaitFor([&] { return surface_.Title() == title; });
    }

    QString Text() const { return Run("document.body.innerText").toString().trimmed(); }
    QString Errors() const { return Run("errors.join(', ')").toString(); }

    void PointAt(int x, int y) const {
        QWidget* const target = surface_.childAt(x, y);
        ASSERT_NE(target, nullptr);
        QTest::mouseMove(target, target->mapFrom(&surface_, QPoint(x, y)));
    }
    bool WaitForPixel(const QColor& color) {
        return WaitFor([&] { return surface_.grab().toImage().pixelColor(50, 25) == color; });
    }

    QTemporaryDir folder_;
    BrowserSurface surface_;
    QString title_;  // of the page that is shown
    int shown_ = 0;
};

TEST_F(RunningScripts, WriteWhatTheBrowserTells) {
    const std::pair<const char*, const char*> scripts[] = {
        {"Browser Name Script", "'You are running ' + navigator.appName"},
        {"Current Color-Depth Script", "'Your color depth is ' + screen.colorDepth + ' bit'"},
        {"Current Platform Script", "'Your platform is ' + navigator.platform"},
        {"Current Resolution Script", "'Your resolution is ' + screen.width + ' by ' + screen.height"},
        {"Last Modified Script", "'This document was last modified: ' + document.lastModified"},
        // Only an old browser knows the class.
        {"CPU Type Script", "'Your processor is a undefined'"}};
    for (const auto& [name, text] : scripts) {
        Show(Js(name));
        EXPECT_EQ(Text(), Run(text).toString()) << name;
        EXPECT_GT(Text().size(), 12) << name;
        EXPECT_EQ(Errors(), "") << name;
    }
}

TEST_F(RunningScripts, WriteDateAndTime) {
    const QDate before = QDate::currentDate();
    Show(Js("Current Date Script"));
    const QString date = Text();
    EXPECT_EQ(Errors(), "");
    Show(Js("Current Weekday Script"));
    const QString weekday = Text();
    EXPECT_EQ(Errors(), "");
    if (before != QDate::currentDate()) GTEST_SKIP() << "midnight";
    // Only an old browser wrote the year in full.
    EXPECT_EQ(date, QString("Today is %1/%2/%3").arg(before.month()).arg(before.day()).arg(before.year() - 1900));
    EXPECT_EQ(weekday, "Today is " + QLocale::c().dayName(before.dayOfWeek()));
    Show(Js("Current Time Script"));
    EXPECT_TRUE(QRegularExpression("^The Time is [0-9]+:[0-9]+:[0-9]{2} [AP]M$").match(Text()).hasMatch());
    EXPECT_EQ(Errors(), "");
}

TEST_F(RunningScripts, ScrollByThemselves) {
    Show("<div style=\"height:5000px\"></div>" + Js("Autoscroll"));
    EXPECT_TRUE(WaitFor([this] { return Run("scrollY").toDouble() > 3; }));
    EXPECT_EQ(Errors(), "");
}

TEST_F(RunningScripts, LeadBackToTheTop) {
    Show("<div style=\"height:5000px\"></div>" + Js("Back to Top of Page Link"));
    EXPECT_TRUE(WaitForRun("scrollTo(0, 900); scrollY", 900));
    Run("document.links[0].click()");
    EXPECT_TRUE(WaitForRun("scrollY", 0));
    EXPECT_EQ(Errors(), "");
}

TEST_F(RunningScripts, LeadBackToThePreviousPage) {
    Write("second.html", Page("second", Js("Back to Previous Page Link")));
    Show("first <a href=\"second.html\">on</a>");
    Run("document.links[0].click()");
    ASSERT_TRUE(WaitForTitle("second"));
    EXPECT_EQ(Errors(), "");
    Run("document.links[0].click()");
    EXPECT_TRUE(WaitForTitle(title_));
}

// Only an old browser let a page open its source; the engine shows the address instead.
TEST_F(RunningScripts, TellTheAddressOfTheSource) {
    Show(Js("View Source Code Script"));
    EXPECT_EQ(Text(), "View Source Code For this Page");
    EXPECT_EQ(Errors(), "");
    Run("document.links[0].click()");
    EXPECT_TRUE(WaitForRun("document.body.innerText", "view-source:" + Run("location.href").toString()));
}

TEST_F(RunningScripts, LeaveAFrame) {
    PageServer server;
    server.pages["/outer"] = {Reply(Page("Around", "<iframe src=\"/inner\"></iframe>"), "Content-Type: text/html\r\n")};
    server.pages["/inner"] = {Reply(Page("Framed", Js("Frame Buster")), "Content-Type: text/html\r\n")};
    Go(server.Address("/inner"), "Framed");
    EXPECT_EQ(Errors(), "");
    surface_.Navigate(server.Address("/outer"));
    EXPECT_TRUE(WaitFor([&] { return server.asked.count("/outer") == 1; }));
    EXPECT_TRUE(WaitForTitle("Framed")) << server.asked.join(' ').toStdString();
}

TEST_F(RunningScripts, GrowAPicture) {
    WritePicture("a.png", Qt::red);
    Show(PopupImageScript({.end = "60", .image = "a.png"}).value());
    EXPECT_TRUE(WaitForRun("Popup1.width", 62)) << "from 2 on by 10";
    EXPECT_EQ(Errors(), "");
}

TEST_F(RunningScripts, LeadWhereALinkboxSays) {
    Write("a.html", Page("a", "A"));
    Write("b.html", Page("b", "B"));
    for (const char* name : {"LinkBox", "Other"}) {
        for (const auto& [index, title] : {std::pair{1, "a"}, {2, "b"}}) {
            Show(LinkboxScript({.name = name, .caption = "Where?", .links = {{"A", "a.html"}, {"B", "b.html"}}}));
            EXPECT_EQ(Run("document.forms[0].elements[0].options[0].text"), "Where?");
            EXPECT_EQ(Errors(), "");
            Run(QString("var box = document.forms[0].elements[0]; box.selectedIndex = %1;"
                        "box.dispatchEvent(new Event('change'))")
                    .arg(index));
            EXPECT_TRUE(WaitForTitle(title));
        }
    }
}

TEST_F(RunningScripts, MoveAMessage) {
    Show(StatusMessageScript("Hello"));
    QStringList shown;
    EXPECT_TRUE(WaitFor([&] {
        const QString status = Run("window.status").toString();
        if (shown.isEmpty() || shown.last() != status) shown << status;
        return shown.size() == 4;
    }));
    for (const QString& status : shown) {
        EXPECT_TRUE(QString("Hello      Hello      ").contains(status)) << status.toStdString();
        EXPECT_EQ(status.size(), 11) << status.toStdString();
    }
    EXPECT_EQ(Errors(), "");
}

TEST_F(RunningScripts, ChangeAPictureUnderThePointer) {
    WritePicture("a.png", Qt::red);
    WritePicture("b.png", Qt::blue);
    Write("c.html", Page("c", "C"));
    Show(RolloverScript({.mainImage = "a.png", .rollImage = "b.png", .url = "c.html"}, "imgroll7"));
    ASSERT_TRUE(WaitForPixel(Qt::red));
    PointAt(50, 25);
    EXPECT_TRUE(WaitForPixel(Qt::blue));
    PointAt(300, 250);
    EXPECT_TRUE(WaitForPixel(Qt::red));
    EXPECT_EQ(Errors(), "");
    Run("document.links[0].click()");
    EXPECT_TRUE(WaitForTitle("c"));
}

TEST_F(RunningScripts, FadeTheBackground) {
    // Notes each colour, and lets it through.
    constexpr auto noteColors =
        "<script>var seen = []; var native = Object.getOwnPropertyDescriptor(Document.prototype, 'bgColor');"
        "Object.defineProperty(document, 'bgColor', {get: function() { return native.get.call(document) },"
        "set: function(color) { seen.push(color); native.set.call(document, color) }})</script>";
    const QStringList colors = FadeColors({.first = 0x0010FF, .last = 0xF0A000, .steps = "5"});
    Show(FadeScript(colors), noteColors);
    const QStringList seen = Run("seen").toStringList();
    ASSERT_EQ(seen.size(), 6);
    EXPECT_EQ(seen.last(), "#123456") << "the page's own";
    EXPECT_EQ(seen.first(), "#FF1000");
    for (int i = 1; i < 5; ++i) {
        const QColor before(seen.at(i - 1));
        const QColor after(seen.at(i));
        EXPECT_LT(after.red(), before.red());
        EXPECT_GT(after.green(), before.green());
        EXPECT_GT(after.blue(), before.blue());
    }
    EXPECT_EQ(Run("document.bgColor"), "#123456");
    EXPECT_EQ(Errors(), "");
}

// Only an old browser has the language; the engine passes over it.
TEST_F(RunningScripts, InVBScriptDoNothing) {
    QStringList scripts{RandomColorScript({"#FF0000", "#00FF00"}), RandomTextScript({{"one"}, {"two"}}),
                        ScriptElement({.language = "VBScript"})};
    for (const QString& name : PremadeNames(ScriptLanguage::VBScript)) {
        scripts << PremadeScript(ScriptLanguage::VBScript, name);
    }
    for (const QString& script : scripts) {
        Show("<p>before</p>" + script + "<p>after</p>");
        EXPECT_EQ(Text().simplified(), "before after") << script.toStdString();
        EXPECT_EQ(Run("document.bgColor"), "#123456");
        EXPECT_EQ(Errors(), "");
    }
}

TEST_F(RunningScripts, InsertedElementsTakeCode) {
    for (const char* language : {"Javascript", ""}) {
        QString element = ScriptElement({.language = language});
        element.replace("\r\n\r\n\r\n", "\r\nvar inserted = 5 < 6\r\n");
        Show(element);
        EXPECT_EQ(Run("inserted"), true) << language;
        EXPECT_EQ(Errors(), "");
    }
    Write("own.js", "var loaded = 7");
    Show(ScriptElement({.source = "own.js"}));
    EXPECT_EQ(Run("loaded"), 7);
    Show(ScriptElement({.language = "PerlScript"}) + "after");
    EXPECT_EQ(Text(), "after") << "an open comment ends with the element";
    EXPECT_EQ(Errors(), "");
}

TEST_F(RunningScripts, InATagAnswerItsEvent) {
    const std::optional<QString> attribute = EventAttribute({.event = "onclick", .code = "clicked = this.id"});
    Show("<p id=\"here\"" + attribute.value() + ">x</p>", "<script>var clicked = ''</script>");
    Run("document.getElementById('here').click()");
    EXPECT_EQ(Run("clicked"), "here");
    EXPECT_EQ(Errors(), "");
}

}  // namespace
}  // namespace vellum::test

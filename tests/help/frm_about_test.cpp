#include "help/frm_about.h"

#include "tests/support/modal.h"
#include "tests/support/test_workbench.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

constexpr std::uint64_t megabyte = 1048576;

SystemFacts SomeFacts() {
    SystemFacts facts;
    facts.processorType = 6;
    facts.processorCount = 2;
    facts.windowsDirectory = "/usr/bin";
    facts.systemDirectory = "/usr/lib";
    facts.totalPhysicalMemory = 4096 * megabyte;
    facts.freePhysicalMemory = 1000 * megabyte + megabyte / 4;
    facts.totalVirtualMemory = 8192 * megabyte;
    facts.freeVirtualMemory = megabyte / 2;
    facts.millisecondsSinceBoot = 4444200000;  // 1234.5 hours
    return facts;
}

// The line that begins so, without that beginning.
QString Line(const SystemFacts& facts, const QString& label) {
    for (const QString& line : SystemFactsText(facts).split("\r\n")) {
        if (line.startsWith(label)) return line.mid(label.size());
    }
    return "(none)";
}

QString Hours(std::uint64_t milliseconds) {
    SystemFacts facts;
    facts.millisecondsSinceBoot = milliseconds;
    return Line(facts, "Windows has been running for: ");
}

TEST(SystemFactsTextOf, EveryFact) {
    EXPECT_EQ(SystemFactsText(SomeFacts()),
              "--About Your System--\r\n"
              "\r\n"
              "Processor Type:  6\r\n"
              "# Of Processors: 2\r\n"
              "Windows Directory: /usr/bin\r\n"
              "System Directory: /usr/lib\r\n"
              "Total Physical Memory: 4096 Megabytes\r\n"
              "Physical Memory Available: 1000.25 Megabytes\r\n"
              "Total Virtual Memory: 8192 Megabytes\r\n"
              "Virtual Memory Available: 0.5 Megabytes\r\n"
              "Windows has been running for: 1,234.50 Hours");
}

TEST(SystemFactsTextOf, NoFacts) {
    EXPECT_EQ(SystemFactsText({}),
              "--About Your System--\r\n"
              "\r\n"
              "Processor Type:  0\r\n"
              "# Of Processors: 0\r\n"
              "Windows Directory: \r\n"
              "System Directory: \r\n"
              "Total Physical Memory: 0 Megabytes\r\n"
              "Physical Memory Available: 0 Megabytes\r\n"
              "Total Virtual Memory: 0 Megabytes\r\n"
              "Virtual Memory Available: 0 Megabytes\r\n"
              "Windows has been running for: 0.00 Hours");
}

TEST(SystemFactsTextOf, MemoryBeyondFourGigabytes) {
    SystemFacts facts;
    facts.totalPhysicalMemory = 2097152 * megabyte;
    EXPECT_EQ(Line(facts, "Total Physical Memory: "), "2097152 Megabytes");
}

TEST(SystemFactsTextOf, HoursWithTwoDecimalsAndGroups) {
    constexpr std::uint64_t hour = 3600000;
    EXPECT_EQ(Hours(hour / 4), "0.25 Hours");
    EXPECT_EQ(Hours(hour / 8), "0.13 Hours") << "halves go up";
    EXPECT_EQ(Hours(17999), "0.00 Hours");
    EXPECT_EQ(Hours(18000), "0.01 Hours");
    EXPECT_EQ(Hours(7 * hour + hour / 20), "7.05 Hours");
    EXPECT_EQ(Hours(999 * hour), "999.00 Hours");
    EXPECT_EQ(Hours(1000 * hour), "1,000.00 Hours");
    EXPECT_EQ(Hours(1234567 * hour), "1,234,567.00 Hours");
    EXPECT_EQ(Hours(1193 * hour + hour / 20), "1,193.05 Hours") << "past 32 bits of milliseconds";
}

TEST(SystemFactsTextOf, TheSameInEveryLocale) {
    const QLocale usual;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(Line(SomeFacts(), "Windows has been running for: "), "1,234.50 Hours");
    EXPECT_EQ(Line(SomeFacts(), "Physical Memory Available: "), "1000.25 Megabytes");
    QLocale::setDefault(usual);
}

TEST(DtdCreditsOf, EveryDocumentTypeThatComesAlong) {
    QStringList names;
    for (const DtdCredit& credit : DtdCredits()) {
        names << credit.name;
        EXPECT_TRUE(QString(credit.text).contains("Consortium") || QString(credit.text).contains("Forum"));
    }
    EXPECT_EQ(names, QStringList({"XHTML 1.0", "OpenEBook Document", "OpenEBook Package", "SMIL 1.0", "SVG 1.0",
                                  "WML 1.3", "X3D Compromise 0.79"}));
}

template <typename Widget>
Widget& Get(const QWidget& form, const char* name) {
    auto* const widget = form.findChild<Widget*>(name);
    if (!widget) throw std::runtime_error(name);
    return *widget;
}

class AboutForm : public testing::Test {
protected:
    void Open(const std::function<void(frmAbout&)>& steps) {
        frmAbout form(bench, SomeFacts(), [this](const QString& address) {
            opened << address;
            return opens;
        });
        InModal<frmAbout>([&form] { form.exec(); }, steps);
    }

    TestWorkbench bench;
    QStringList opened;
    bool opens = true;
};

TEST_F(AboutForm, ShowsTheProduct) {
    Open([](frmAbout& form) {
        EXPECT_EQ(form.objectName(), "frmAbout");
        EXPECT_EQ(form.windowTitle(), "About...");
        QStringList texts;
        for (const auto* label : form.findChildren<QLabel*>()) texts << label->text();
        for (const char* text :
             {"Vellumcraft", "Version X Release 2", "ActiveX and VBScript are trademarks of Microsoft"}) {
            EXPECT_TRUE(texts.contains(text)) << text;
        }
        EXPECT_EQ(Get<QPushButton>(form, "Label5").text(), "https://vellumcraft.example/");
        EXPECT_TRUE(Get<QPlainTextEdit>(form, "Text1").toPlainText().contains("without warranty of any kind"));
        EXPECT_TRUE(Get<QPlainTextEdit>(form, "Text1").toPlainText().contains("MIT License"));
    });
}

TEST_F(AboutForm, ShowsTheFactsAtLoad) {
    Open([](frmAbout& form) {
        EXPECT_EQ(Get<QPlainTextEdit>(form, "Text2").toPlainText(), SystemFactsText(SomeFacts()).remove('\r'));
    });
}

TEST_F(AboutForm, ShowsTheCreditsAsSections) {
    Open([](frmAbout& form) {
        QStringList sections;
        for (const DtdCredit& credit : DtdCredits()) sections << QString(credit.name) + '\n' + credit.text;
        EXPECT_EQ(Get<QTextEdit>(form, "Text3").toPlainText(), sections.join("\n\n"));
    });
}

TEST_F(AboutForm, ItsTextsCanOnlyBeRead) {
    Open([](frmAbout& form) {
        for (const char* name : {"Text1", "Text2", "Text3"}) {
            auto& text = Get<QWidget>(form, name);
            const QString before = text.property("plainText").toString();
            text.setFocus();
            QTest::keyClicks(&text, "x");
            QTest::keyClick(&text, Qt::Key_Delete);
            EXPECT_FALSE(before.isEmpty());
            EXPECT_EQ(text.property("plainText").toString(), before);
        }
    });
}

TEST_F(AboutForm, OpensTheSiteByMouseAndKeyboard) {
    Open([this](frmAbout& form) {
        auto& site = Get<QPushButton>(form, "Label5");
        EXPECT_EQ(site.cursor().shape(), Qt::PointingHandCursor);
        QTest::mouseClick(&site, Qt::LeftButton);
        EXPECT_EQ(opened, QStringList("https://vellumcraft.example/"));
        site.setFocus();
        QTest::keyClick(&site, Qt::Key_Space);
        QTest::keyClick(&site, Qt::Key_Return);
        EXPECT_EQ(opened.size(), 3);
        EXPECT_TRUE(form.isVisible());
    });
    EXPECT_EQ(bench.prompts.messages, QStringList());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(AboutForm, TellsWhenNothingOpensTheSite) {
    opens = false;
    Open([](frmAbout& form) { QTest::mouseClick(&Get<QPushButton>(form, "Label5"), Qt::LeftButton); });
    EXPECT_EQ(bench.prompts.messages, QStringList("No program could be started to open https://vellumcraft.example/"));
}

TEST_F(AboutForm, OkAndEnterAndEscClose) {
    const auto closed = [this](const std::function<void(frmAbout&)>& close) {
        Open([&close](frmAbout& form) {
            close(form);
            EXPECT_FALSE(form.isVisible());
        });
    };
    closed([](frmAbout& form) {
        auto& ok = Get<QPushButton>(form, "cmdOK");
        EXPECT_EQ(ok.text(), "&OK");
        QTest::mouseClick(&ok, Qt::LeftButton);
    });
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        closed([key](frmAbout& form) { QTest::keyClick(form.focusWidget(), key); });
        // From a text, too.
        closed([key](frmAbout& form) {
            auto& text = Get<QPlainTextEdit>(form, "Text2");
            text.setFocus();
            QTest::keyClick(&text, key);
        });
    }
}

TEST_F(AboutForm, TheTabKeyReachesEverything) {
    Open([](frmAbout& form) {
        QStringList names;
        for (int i = 0; i < 5; ++i) {
            names << form.focusWidget()->objectName();
            QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(names.join(' '), "cmdOK Label5 Text1 Text2 Text3");
    });
}

}  // namespace
}  // namespace vellum::test

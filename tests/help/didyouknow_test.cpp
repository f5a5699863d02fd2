#include "help/didyouknow.h"

#include "tests/support/modal.h"
#include "tests/support/test_workbench.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>
#include <set>

namespace vellum::test {
namespace {

const QStringList allTips{
    "The Table Builder supports WYSIWYG cell sizing.",
    "Several pre-made Javascripts and VBScripts are available to help enhance your website.",
    "HTML generated graphics are available through \"Special Effects\"",
    "You can use the Image Map Editor to create context sensitive images.",
    "Vellumcraft supports external, header, and inline style sheets.",
    "Vellumcraft can convert both text files and table files to XHTML.",
    "The Frame Builder allows you to draw out your own frames.",
    "VRML Site maps can be generated with the VRML Builder.",
    "Microsoft Visual Filters are supported through the Image tool.",
    "Internet Explorer 5.0 or higher is used as the main preview window.",
    "Vellumcraft constructs its XHTML tree references straight from the XML DTDs.",
    "Vellumcraft has a new and improved color coding engine.",
    ("Tree References included with Vellumcraft include all three DTDs for XHTML as well as Open eBook, SVG 1.0, and "
     "SMIL 1.0."),
    "The editing and preview panes can be divided horizontally or vertically, and both are resizable.  (IE)",
    "You can select transitional, strict, or frameset references for XHTML 1.0 from the Settings box.",
    ("Right-clicking on an XML-based language in the tree reference will activate the popup tag/attribute box for that "
     "language."),
};

TEST(TipsOf, TheListInItsOrder) {
    EXPECT_EQ(Tips(), allTips);
}

TEST(TipIndexOf, TheWholePartOfTheProduct) {
    EXPECT_EQ(TipIndex(0, 16), 0);
    EXPECT_EQ(TipIndex(0.0624, 16), 0);
    EXPECT_EQ(TipIndex(0.0625, 16), 1);
    EXPECT_EQ(TipIndex(0.5, 16), 8);
    EXPECT_EQ(TipIndex(0.9999999, 16), 15);
    EXPECT_EQ(TipIndex(0.9999999, 3), 2);
}

TEST(RandomFromTheClock, StaysBelowOneAndReachesEveryTip) {
    const auto random = RandomFromClock();
    std::set<int> seen;
    for (int i = 0; i < 5000; ++i) {
        const double number = random();
        ASSERT_GE(number, 0);
        ASSERT_LT(number, 1);
        seen.insert(TipIndex(number, 16));
    }
    EXPECT_EQ(seen.size(), 16U);
}

TEST(RandomFromTheClock, IsSeededAnewEachTime) {
    std::set<double> firsts;
    for (int i = 0; i < 20; ++i) firsts.insert(RandomFromClock()());
    EXPECT_GT(firsts.size(), 1U);
}

template <typename Widget>
Widget& Get(const QWidget& form, const char* name) {
    auto* const widget = form.findChild<Widget*>(name);
    if (!widget) throw std::runtime_error(name);
    return *widget;
}

QString Shown(const QWidget& form) {
    return Get<QLabel>(form, "Label2").text();
}

void Click(const QWidget& form, const char* name) {
    auto& button = Get<QAbstractButton>(form, name);
    QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
}

// An access key, which only the active window answers to. The button stays down for a while before it acts.
void PressAlt(QWidget& form, Qt::Key key, const char* buttonName) {
    const auto& button = Get<QAbstractButton>(form, buttonName);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QTest::keyClick(&form, key, Qt::AltModifier);
    EXPECT_TRUE(button.isDown());
    EXPECT_TRUE(QTest::qWaitFor([&button] { return !button.isDown(); }));
}

class TipsForm : public testing::Test {
protected:
    // Shows the dialog, with `number` as its next random number.
    TipsChoice Open(const std::function<void(Didyouknow&)>& steps) {
        Didyouknow form(bench, [this] {
            ++draws;
            return number;
        });
        InModal<Didyouknow>([&form] { form.exec(); }, steps);
        return form.Choice();
    }

    [[nodiscard]] QString Stored() { return bench.Settings().Read(u"Vellumcraft", u"Startup", u"ShowStart", "(none)"); }

    TestWorkbench bench;
    double number = 0;
    int draws = 0;
};

TEST_F(TipsForm, CarriesItsCaptions) {
    Open([](Didyouknow& form) {
        EXPECT_EQ(form.objectName(), "Didyouknow");
        EXPECT_EQ(form.windowTitle(), "Did You Know?");
        EXPECT_EQ(Get<QLabel>(form, "Label1").text(), "Did You Know...");
        EXPECT_EQ(Get<QPushButton>(form, "Command2").text(), "&Next Tip");
        EXPECT_EQ(Get<QPushButton>(form, "Command3").text(), "&Create A New Document");
        EXPECT_EQ(Get<QPushButton>(form, "Command5").text(), "&Open an Existing Webpage");
        EXPECT_EQ(Get<QCheckBox>(form, "Check1").text().remove(u'&'), "Show me at startup");
    });
}

TEST_F(TipsForm, KeepsTheTipsInAHiddenList) {
    Open([](Didyouknow& form) {
        const auto& list = Get<QListWidget>(form, "List1");
        EXPECT_FALSE(list.isVisible());
        QStringList tips;
        for (int i = 0; i < list.count(); ++i) tips << list.item(i)->text();
        EXPECT_EQ(tips, allTips);
    });
}

TEST_F(TipsForm, ShowsTheTipOfEachNumber) {
    for (int i = 0; i < 16; ++i) {
        number = (i + 0.5) / 16;
        Open([i](Didyouknow& form) { EXPECT_EQ(Shown(form), allTips.at(i)); });
    }
    EXPECT_EQ(draws, 16) << "one tip is chosen on load";
}

TEST_F(TipsForm, NextTipChoosesAgain) {
    Open([this](Didyouknow& form) {
        number = 0.9999999;
        Click(form, "Command2");
        EXPECT_EQ(Shown(form), allTips.at(15));
        number = 0.85;
        PressAlt(form, Qt::Key_N, "Command2");
        EXPECT_EQ(Shown(form), allTips.at(13));
        EXPECT_TRUE(form.isVisible());
    });
    EXPECT_EQ(draws, 3);
}

TEST_F(TipsForm, ATipMayComeTwiceRunning) {
    Open([this](Didyouknow& form) {
        EXPECT_EQ(Shown(form), allTips.at(0));
        Click(form, "Command2");
        EXPECT_EQ(Shown(form), allTips.at(0));
        EXPECT_EQ(draws, 2);
    });
}

TEST_F(TipsForm, StoresTheStartAtOnce) {
    Open([this](Didyouknow& form) {
        EXPECT_TRUE(Get<QCheckBox>(form, "Check1").isChecked()) << "tips show unless they were switched off";
        EXPECT_EQ(Stored(), "(none)");
        Click(form, "Check1");
        EXPECT_EQ(Stored(), "no");
        Click(form, "Check1");
        EXPECT_EQ(Stored(), "yes");
        PressAlt(form, Qt::Key_S, "Check1");
        EXPECT_EQ(Stored(), "no");
    });
    Open([](Didyouknow& form) { EXPECT_FALSE(Get<QCheckBox>(form, "Check1").isChecked()); });
    EXPECT_EQ(Stored(), "no");
}

TEST_F(TipsForm, ClosesWithWhatWasChosen) {
    const auto closed = [this](const std::function<void(Didyouknow&)>& close) {
        return Open([&close](Didyouknow& form) {
            close(form);
            EXPECT_FALSE(form.isVisible());
        });
    };
    EXPECT_EQ(closed([](Didyouknow& form) { Click(form, "Command3"); }), TipsChoice::NewDocument);
    EXPECT_EQ(closed([](Didyouknow& form) { Click(form, "Command5"); }), TipsChoice::OpenPage);
    EXPECT_EQ(closed([](Didyouknow& form) { Click(form, "Command1"); }), TipsChoice::None);
    EXPECT_EQ(closed([](Didyouknow& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Escape); }), TipsChoice::None);
    EXPECT_EQ(closed([](Didyouknow& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Return); }), TipsChoice::None);
    EXPECT_EQ(closed([](Didyouknow& form) { form.close(); }), TipsChoice::None);
}

TEST_F(TipsForm, TheTabKeyReachesEverything) {
    Open([](Didyouknow& form) {
        QStringList names;
        for (int i = 0; i < 6; ++i) {
            names << form.focusWidget()->objectName();
            QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(names.join(' '), "Command1 Label2 Check1 Command2 Command3 Command5");
    });
}

TEST_F(TipsForm, EveryTipHasRoomWithLettersOfAnySize) {
    const QFont usual = QApplication::font();
    for (const int percent : {100, 200}) {
        QFont font = usual;
        font.setPointSizeF(usual.pointSizeF() * percent / 100);
        QApplication::setFont(font);
        QSize size;
        for (int i = 0; i < 16; ++i) {
            number = (i + 0.5) / 16;
            Open([&size](Didyouknow& form) {
                const auto& label = Get<QLabel>(form, "Label2");
                EXPECT_LE(label.heightForWidth(label.width()), label.height()) << Shown(form).toStdString();
                if (size.isEmpty()) size = form.size();
                EXPECT_EQ(form.size(), size) << Shown(form).toStdString();
            });
        }
    }
    QApplication::setFont(usual);
}

}  // namespace
}  // namespace vellum::test

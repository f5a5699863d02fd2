#include "tools/text/cstuff.h"

#include "tests/tools/tool_fixture.h"
#include "widgets/color_swatch.h"

namespace vellum::test {
namespace {

class SpecialEffects : public ToolFixture {
protected:
    static QWidget& Pane(const QWidget& form) { return *Get<QTabWidget>(form, "TabStrip1").currentWidget(); }

    static QImage Sample(const QWidget& form) { return Get<EffectSample>(Pane(form), "picSample").grab().toImage(); }

    static bool Has(const QImage& image, const QColor& color) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == color) return true;
            }
        }
        return false;
    }
};

TEST_F(SpecialEffects, OpensWithItsDefaults) {
    bench.fontNames = {"Verdana", "Arial"};
    document.Text1->SetText("chosen");
    document.Text1->selectAll();
    Open<CStuff>([](CStuff& form) {
        EXPECT_EQ(form.windowTitle(), "Special Effects");
        const auto& tabs = Get<QTabWidget>(form, "TabStrip1");
        const std::pair<const char*, const char*> hints[] = {
            {"3D Text", "Creates 3-D Text"},
            {"Sloped Text", "Creates a line of sloped text"},
            {"Gradient Divider", "Creates a horizontal gradient divider"},
            {"Gradient Text", "Creates a line of text with gradient coloring"}};
        ASSERT_EQ(tabs.count(), 4);
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(Shown(tabs.tabText(i)), hints[i].first);
            EXPECT_EQ(tabs.tabToolTip(i), hints[i].second);
        }
        const std::tuple<const char*, const char*, const char*> fields[] = {
            {"Text17", "Text Displayed:", ""},     {"Combo4", "Font", "Arial"},      {"Combo5", "Font Size", "30"},
            {"Text1", "Text Displayed", "chosen"}, {"Combo1", "Smallest Font", "1"}, {"Combo2", "Largest Font", "1"},
            {"Text2", "Height (In Pixels)", "5"},  {"Text3", "Steps", "10"},         {"Text16", "Text", ""},
            {"Combo3", "Font-Size", "12pt"}};
        for (const auto& [name, caption, value] : fields) {
            EXPECT_EQ(Caption(form, name), caption);
            EXPECT_EQ(Field(form, name), value) << name;
        }
        const std::pair<const char*, const char*> swatches[] = {
            {"Label23", "Front Color"},     {"Label22", "Back Color"},   {"lblDivGradient1", "Color 1"},
            {"lblDivGradient2", "Color 2"}, {"lblGradient1", "Color 1"}, {"lblGradient2", "Color 2"}};
        for (const auto& [name, caption] : swatches) EXPECT_EQ(Caption(form, name), caption);
        EXPECT_EQ(Values(form, "Combo4"), (QStringList{"Verdana", "Arial"}));
        EXPECT_EQ(Values(form, "Combo5").join(' '), "10 12 14 16 18 20 22 24 26 28 30 32 34 36 38 40 42 44 46 48");
        EXPECT_EQ(Values(form, "Combo1").join(' '), "1 2 3 4 5 6 7");
        EXPECT_EQ(Values(form, "Combo2").join(' '), "1 2 3 4 5 6 7");
        EXPECT_FALSE(Get<QComboBox>(form, "Combo1").isEditable());
        EXPECT_EQ(Values(form, "Combo3").join(' '), "8pt 12pt 14pt 16pt 18pt 20pt 22pt 24pt 48pt");
    });
}

TEST_F(SpecialEffects, LayersAText) {
    bench.prompts.colors = {0x0000FF, 0xFF0000};
    Open<CStuff>([this](CStuff& form) {
        Click(form, "cmdOK");
        Type(form, "Text17", "x");
        Type(form, "Combo5", "");
        Click(form, "cmdOK");
        EXPECT_EQ(bench.prompts.messages, QStringList(2, "All Textboxes must be filled"));
        EXPECT_TRUE(form.isVisible());
        Type(form, "Combo5", "12");
        Type(form, "Combo4", "Verdana");
        Click(form, "Label23");
        Click(form, "Label22");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(),
              LayeredTextMarkup({.text = "x", .font = "Verdana", .size = "12", .front = 0x0000FF, .back = 0xFF0000}));
}

TEST_F(SpecialEffects, SlopesTheSelection) {
    document.Text1->SetText("say hello.");
    document.Text1->SetSelStart(4);
    document.Text1->SetSelLength(2);
    Open<CStuff>([this](CStuff& form) {
        Tab(form, 1);
        QTest::keyClick(&Get<QComboBox>(form, "Combo1"), Qt::Key_3);
        Click(form, "cmdOK");
        EXPECT_EQ(bench.prompts.messages, QStringList{"Small Font is larger Than Large Font"});
        EXPECT_TRUE(form.isVisible());
        QTest::keyClick(&Get<QComboBox>(form, "Combo2"), Qt::Key_4);
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(), "say <font size=\"3\">h</font><font size=\"4\">e</font>llo.");
}

TEST_F(SpecialEffects, DividesByARamp) {
    bench.prompts.colors = {0xFFFFFF};
    Open<CStuff>([this](CStuff& form) {
        Tab(form, 2);
        Type(form, "Text3", "");
        Click(form, "cmdOK");
        Type(form, "Text3", "2");
        Type(form, "Text2", "");
        Click(form, "cmdOK");
        EXPECT_EQ(bench.prompts.messages, QStringList(2, "All textboxes must be filled with a value"));
        Type(form, "Text2", "9");
        Click(form, "lblDivGradient2");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(), GradientDividerMarkup({.height = "9", .steps = "2", .first = 0, .last = 0xFFFFFF}));
}

TEST_F(SpecialEffects, NoStepsBecomeOneAtOnce) {
    Open<CStuff>([](CStuff& form) {
        Tab(form, 2);
        for (const char* typed : {"0", "x", "-"}) {
            Type(form, "Text3", typed);
            EXPECT_EQ(Field(form, "Text3"), "1") << typed;
            EXPECT_EQ(Get<QLineEdit>(form, "Text3").selectedText(), "1");
        }
        QTest::keyClicks(form.focusWidget(), "20");
        EXPECT_EQ(Field(form, "Text3"), "20") << "what is typed next takes its place";
        Type(form, "Text3", "99999");
        EXPECT_EQ(Field(form, "Text3"), "1") << "five digits are more than a number of steps has";
    });
}

TEST_F(SpecialEffects, ColorsATextByARamp) {
    bench.prompts.colors = {0x0000FF, 0xFF0000};
    Open<CStuff>([this](CStuff& form) {
        Tab(form, 3);
        Click(form, "cmdOK");
        EXPECT_EQ(bench.prompts.messages, QStringList{"A string of text must be specified"});
        Type(form, "Text16", "ab");
        Type(form, "Combo3", "14");
        Click(form, "lblGradient1");
        Click(form, "lblGradient2");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(), GradientTextMarkup({.text = "ab", .size = "14pt", .first = 0x0000FF, .last = 0xFF0000}));
}

TEST_F(SpecialEffects, ItsSamplesFollowTheFields) {
    bench.prompts.colors = {0x00FF00};
    Open<CStuff>([](CStuff& form) {
        const std::pair<int, QStringList> tabs[] = {
            {0, {"Text17", "Combo5"}}, {1, {"Text1"}}, {2, {"Text2", "Text3"}}, {3, {"Text16", "Combo3"}}};
        for (const auto& [tab, fields] : tabs) {
            Tab(form, tab);
            for (const QString& field : fields) {
                const QImage before = Sample(form);
                Type(form, field, "27");
                EXPECT_NE(Sample(form), before) << field.toStdString();
            }
        }
        Tab(form, 1);
        const QImage flat = Sample(form);
        QTest::keyClick(&Get<QComboBox>(form, "Combo2"), Qt::Key_7);
        EXPECT_NE(Sample(form), flat);
        Tab(form, 2);
        EXPECT_FALSE(Has(Sample(form), Qt::green));
        Click(form, "lblDivGradient1");
        EXPECT_TRUE(Has(Sample(form), Qt::green));
    });
}

TEST_F(SpecialEffects, ADividersSampleHasItsRamp) {
    Open<CStuff>([](CStuff& form) {
        Tab(form, 2);
        const QImage sample = Sample(form);
        const double cell = (sample.width() - 16) / 10.0;
        for (int step = 0; step < 10; ++step) {
            const QColor color = sample.pixelColor(static_cast<int>(8 + (step + 0.5) * cell), 10);
            EXPECT_EQ(color, QColor(25 * step, 0, 0)) << step;
        }
        EXPECT_EQ(sample.pixelColor(20, 13), QColor(Qt::white)) << "it is five pixels high";
    });
}

TEST_F(SpecialEffects, LayersLieOverEachOther) {
    bench.prompts.colors = {0x0000FF, 0xFF0000};
    Open<CStuff>([](CStuff& form) {
        Click(form, "Label23");
        Click(form, "Label22");
        Type(form, "Text17", "HHH");
        const QImage sample = Sample(form);
        EXPECT_TRUE(Has(sample, Qt::red));
        EXPECT_TRUE(Has(sample, Qt::blue));
        Type(form, "Text17", "");
        EXPECT_FALSE(Has(Sample(form), Qt::red));
    });
}

}  // namespace
}  // namespace vellum::test

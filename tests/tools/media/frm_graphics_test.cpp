#include "tools/media/frm_graphics.h"

#include "tests/tools/tool_fixture.h"

#include <QGroupBox>
#include <QImage>
#include <QPushButton>

namespace vellum::test {
namespace {

TEST(GraphicsMarkupOf, TheDefaults) {
    EXPECT_EQ(GraphicsMarkup({}), "<img src=\"\" />");
}

TEST(GraphicsMarkupOf, AnEmptyMediaType) {
    EXPECT_EQ(GraphicsMarkup({.mediaType = ""}), "<img =\"\" />");
}

TEST(GraphicsMarkupOf, EveryField) {
    EXPECT_EQ(GraphicsMarkup({.mediaType = "dynsrc",
                              .url = "a b.avi",
                              .height = "20",
                              .width = "30",
                              .hspace = "4",
                              .vspace = "5",
                              .border = "0",
                              .alignment = "LEFT",
                              .description = "A film",
                              .transparency = "50",
                              .imageMap = true,
                              .mapName = "#map",
                              .filterType = "Glow Filter",
                              .filterColor = "#FF8000",
                              .strength = "9"}),
              "<img dynsrc=\"a b.avi\" height=\"20\" width=\"30\" hspace=\"4\" vspace=\"5\" border=\"0\" "
              "align=\"LEFT\" alt=\"A film\" transparency=\"50\" usemap=\"#map\" "
              "style=\"filter:Glow(color=#FF8000, strength=9)\" />");
}

TEST(GraphicsMarkupOf, EachFieldAlone) {
    const std::vector<std::pair<QString GraphicsFields::*, QString>> attributes{
        {&GraphicsFields::height, "height"},   {&GraphicsFields::width, "width"},
        {&GraphicsFields::hspace, "hspace"},   {&GraphicsFields::vspace, "vspace"},
        {&GraphicsFields::border, "border"},   {&GraphicsFields::alignment, "align"},
        {&GraphicsFields::description, "alt"}, {&GraphicsFields::transparency, "transparency"}};
    for (const auto& [field, attribute] : attributes) {
        GraphicsFields fields;
        fields.*field = "<\"&";
        EXPECT_EQ(GraphicsMarkup(fields), "<img src=\"\" " + attribute + "=\"<\"&\" />");
    }
}

TEST(GraphicsMarkupOf, AnImageMapAlsoWithoutAName) {
    EXPECT_EQ(GraphicsMarkup({.mapName = "#map"}), "<img src=\"\" />");
    EXPECT_EQ(GraphicsMarkup({.imageMap = true, .mapName = "#map"}), "<img src=\"\" usemap=\"#map\" />");
    EXPECT_EQ(GraphicsMarkup({.imageMap = true}), "<img src=\"\" usemap=\"\" />");
}

// The attributes of an otherwise empty tag.
QString StyleOf(const QString& type, const QString& color, const QString& strength) {
    const QString start = "<img src=\"\"";
    const QString markup = GraphicsMarkup({.filterType = type, .filterColor = color, .strength = strength});
    EXPECT_TRUE(markup.startsWith(start) && markup.endsWith(" />"));
    return markup.mid(start.size(), markup.size() - start.size() - 3);
}

TEST(GraphicsMarkupOf, EachFilter) {
    const std::vector<std::pair<QString, QString>> styles{
        {"Flip Horizontal", " style=\"filter:FlipH()\""},
        {"Flip Vertical", " style=\"filter:FlipV()\""},
        {"Invert Filter", " style=\"filter:Invert()\""},
        {"Grayscale Filter", " style=\"filter:Gray()\""},
        {"XRay Filter", " style=\"filter:Xray()\""},
        {"Wave Filter", " style=\"filter:Wave(Add=0, freq=3, light=50, phase=0, strength=25)\""},
        {"Shadow Filter", " style=\"filter:Shadow(color=#102030, Direction=225)\""},
        {"Alpha Filter", " style=\"filter:Alpha(Opacity=7)\""},
        {"Blur Filter", " style=\"filter:Blur(add=0, direction=90, strength=7)\""},
        {"Glow Filter", " style=\"filter:Glow(color=#102030, strength=7)\""},
        {"Mask Filter", " style=\"filter:Mask(color=#102030)\""}};
    for (const auto& [type, style] : styles) EXPECT_EQ(StyleOf(type, "#102030", "7"), style);
}

TEST(GraphicsMarkupOf, FiltersWithoutAColorOrStrength) {
    EXPECT_EQ(StyleOf("Shadow Filter", "", ""), " style=\"filter:Shadow(color=, Direction=225)\"");
    EXPECT_EQ(StyleOf("Glow Filter", "", ""), " style=\"filter:Glow(color=, strength=)\"");
    EXPECT_EQ(StyleOf("Mask Filter", "", ""), " style=\"filter:Mask(color=)\"");
    EXPECT_EQ(StyleOf("Alpha Filter", "", ""), " style=\"filter:Alpha(Opacity=)\"");
    EXPECT_EQ(StyleOf("Blur Filter", "", ""), " style=\"filter:Blur(add=0, direction=90, strength=)\"");
}

TEST(GraphicsMarkupOf, NoFilterOrAnUnknownOne) {
    for (const char* type : {"", "Sepia Filter", "glow filter", "Glow Filter ", "Glow"}) {
        EXPECT_EQ(StyleOf(type, "#102030", "7"), "") << type;
    }
}

class GraphicsForm : public ToolFixture {
protected:
    // An image of 40 by 30 pixels in the website directory; returns its path.
    [[nodiscard]] QString Image(const QString& name, const char* format) const {
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::white);
        EXPECT_TRUE(image.save(folder.filePath(name), format));
        return folder.filePath(name);
    }
};

TEST_F(GraphicsForm, ShowsItsCaptions) {
    Open<frmGraphics>([](frmGraphics& tool) {
        EXPECT_EQ(tool.windowTitle(), "Graphics");
        const auto& tabs = Get<QTabWidget>(tool, "TabStrip1");
        ASSERT_EQ(tabs.count(), 2);
        EXPECT_EQ(Shown(tabs.tabText(0)), "URL and Positioning");
        EXPECT_EQ(Shown(tabs.tabText(1)), "Microsoft Gradient Filters");
        const std::vector<std::pair<const char*, const char*>> captions{
            {"cboMediaType", "Media Type"},    {"txtURL", "URL"},
            {"txtHeight", "Height"},           {"txtWidth", "Width"},
            {"txtHSpace", "HSPACE"},           {"txtVSpace", "VSPACE"},
            {"cboBorder", "Border"},           {"cboAlignment", "Alignment"},
            {"txtDescription", "Description"}, {"cboTransparency", "Transparency"},
            {"cboFilterType", "Filter Type"},  {"cmdFilterColor", "Filter Color"},
            {"txtStrength", "Strength"}};
        for (const auto& [field, caption] : captions) EXPECT_EQ(Caption(tool, field), caption) << field;
        EXPECT_EQ(Shown(Get<QAbstractButton>(tool, "cmdURL").text()), "Find");
        EXPECT_EQ(Shown(Get<QAbstractButton>(tool, "cmdFilterColor").text()), "Set");
        EXPECT_EQ(Shown(Get<QCheckBox>(tool, "chkImageMap").text()), "Image Map");
        auto* const frame = tool.findChild<QGroupBox*>();
        ASSERT_TRUE(frame);
        EXPECT_EQ(Shown(frame->title()), "WebTV");
        EXPECT_TRUE(frame->findChild<QComboBox*>("cboTransparency"));
    });
}

TEST_F(GraphicsForm, TellsWhatTheStrengthIsFor) {
    const frmGraphics tool(bench);
    QStringList texts;
    for (const QLabel* label : tool.findChildren<QLabel*>()) texts << label->text();
    for (const char* text :
         {"Needed For: Alpha Filter - Opacity", "Blur Filter - Pixel Displacement", "Needed For Mask Filter"}) {
        EXPECT_TRUE(texts.contains(text)) << text;
    }
}

TEST_F(GraphicsForm, OffersItsValues) {
    Open<frmGraphics>([](frmGraphics& tool) {
        EXPECT_EQ(Values(tool, "cboMediaType"), (QStringList{"dynsrc", "src", "vrml"}));
        EXPECT_EQ(Values(tool, "cboBorder"), QString("0 1 2 3 4 5 6 7 8 9 10 20").split(' '));
        EXPECT_EQ(Values(tool, "cboAlignment"),
                  QString("ABSBOTTOM ABSMIDDLE BASELINE BOTTOM LEFT MIDDLE RIGHT TEXTTOP TOP").split(' '));
        EXPECT_EQ(Values(tool, "cboTransparency"), QString("0 10 20 30 40 50 60 70 80 90 100").split(' '));
        EXPECT_EQ(Values(tool, "cboFilterType"),
                  (QStringList{"Alpha Filter", "Blur Filter", "Flip Horizontal", "Flip Vertical", "Grayscale Filter",
                               "Invert Filter", "Mask Filter", "Wave Filter", "XRay Filter"}));
    });
}

TEST_F(GraphicsForm, StartsWithItsDefaultsEachTime) {
    bench.prompts.colors = {0x0000FF, 0x0000FF};
    for (int i = 0; i < 2; ++i) {
        Open<frmGraphics>([](frmGraphics& tool) {
            for (const char* field :
                 {"txtURL", "txtHeight", "txtWidth", "txtHSpace", "txtVSpace", "cboBorder", "cboAlignment",
                  "txtDescription", "cboTransparency", "txtImageMap", "cboFilterType", "txtStrength"}) {
                EXPECT_EQ(Field(tool, field), "") << field;
            }
            EXPECT_EQ(Field(tool, "cboMediaType"), "src");
            EXPECT_EQ(Get<QLabel>(tool, "lblFilterColor").text(), "");
            EXPECT_FALSE(Get<QCheckBox>(tool, "chkImageMap").isChecked());
            EXPECT_EQ(Get<QTabWidget>(tool, "TabStrip1").currentIndex(), 0);
            Click(tool, "chkImageMap");
            for (const char* field :
                 {"cboMediaType", "txtURL", "txtHeight", "txtWidth", "txtHSpace", "txtVSpace", "cboBorder",
                  "cboAlignment", "txtDescription", "cboTransparency", "txtImageMap"}) {
                Type(tool, field, "other");
            }
            Tab(tool, 1);
            Type(tool, "cboFilterType", "Mask Filter");
            Type(tool, "txtStrength", "other");
            Click(tool, "cmdFilterColor");
            QTest::keyClick(&tool, Qt::Key_Escape);
        });
    }
    EXPECT_EQ(Text(), "");
}

TEST_F(GraphicsForm, WritesEveryFieldFromBothPanes) {
    bench.prompts.colors = {0x0080FF};
    Open<frmGraphics>([](frmGraphics& tool) {
        Type(tool, "cboMediaType", "vrml");
        Type(tool, "txtURL", "world.wrl");
        Type(tool, "txtHeight", "1");
        Type(tool, "txtWidth", "2");
        Type(tool, "txtHSpace", "3");
        Type(tool, "txtVSpace", "4");
        Type(tool, "cboBorder", "5");
        Type(tool, "cboAlignment", "TOP");
        Type(tool, "txtDescription", "A world");
        Type(tool, "cboTransparency", "70");
        Click(tool, "chkImageMap");
        Type(tool, "txtImageMap", "#m");
        Tab(tool, 1);
        Type(tool, "cboFilterType", "Glow Filter");
        Click(tool, "cmdFilterColor");
        Type(tool, "txtStrength", "8");
        QTest::keyClick(tool.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Text(),
              "<img vrml=\"world.wrl\" height=\"1\" width=\"2\" hspace=\"3\" vspace=\"4\" border=\"5\" align=\"TOP\" "
              "alt=\"A world\" transparency=\"70\" usemap=\"#m\" style=\"filter:Glow(color=#FF8000, strength=8)\" />");
}

TEST_F(GraphicsForm, TakesAFilterThatIsTypedThoughNotInTheList) {
    Open<frmGraphics>([](frmGraphics& tool) {
        Tab(tool, 1);
        Type(tool, "cboFilterType", "Shadow Filter");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<img src=\"\" style=\"filter:Shadow(color=, Direction=225)\" />");
}

TEST_F(GraphicsForm, TheImageMapIsOnWithItsCheckAlone) {
    Open<frmGraphics>([](frmGraphics& tool) {
        const auto& field = Get<QLineEdit>(tool, "txtImageMap");
        EXPECT_FALSE(field.isEnabled());
        EXPECT_EQ(field.palette().color(QPalette::Disabled, QPalette::Base), QColor(0xC0, 0xC0, 0xC0));
        EXPECT_LT(qGray(field.palette().color(QPalette::Disabled, QPalette::Text).rgb()), 0x60);
        Click(tool, "chkImageMap");
        EXPECT_TRUE(field.isEnabled());
        EXPECT_EQ(field.palette().color(QPalette::Active, QPalette::Base), QColor(Qt::white));
        EXPECT_EQ(field.palette().color(QPalette::Active, QPalette::Text), QColor(Qt::black));
        Type(tool, "txtImageMap", "#m");
        Click(tool, "chkImageMap");
        EXPECT_FALSE(field.isEnabled());
        EXPECT_EQ(field.palette().color(QPalette::Disabled, QPalette::Base), QColor(0xC0, 0xC0, 0xC0));
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<img src=\"\" />");
}

TEST_F(GraphicsForm, ShowsTheFilterColorAndACancelChangesNothing) {
    bench.prompts.colors = {0x0080FF};
    Open<frmGraphics>([this](frmGraphics& tool) {
        Tab(tool, 1);
        Click(tool, "cmdFilterColor");
        const auto& label = Get<QLabel>(tool, "lblFilterColor");
        EXPECT_EQ(label.palette().color(QPalette::Window), QColor(0xFF, 0x80, 0x00));
        EXPECT_TRUE(label.autoFillBackground());
        EXPECT_EQ(label.text(), "#FF8000");
        Click(tool, "cmdFilterColor");
        EXPECT_EQ(bench.prompts.firstColors.size(), 2U);
        EXPECT_EQ(label.palette().color(QPalette::Window), QColor(0xFF, 0x80, 0x00));
        EXPECT_EQ(label.text(), "#FF8000");
        Type(tool, "cboFilterType", "Mask Filter");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<img src=\"\" style=\"filter:Mask(color=#FF8000)\" />");
}

TEST_F(GraphicsForm, FindsAFileAndMeasuresIt) {
    bench.prompts.openNames = {Image("a \"b\" é.JPG", "JPG")};
    Open<frmGraphics>([this](frmGraphics& tool) {
        Click(tool, "cmdURL");
        ASSERT_EQ(bench.prompts.requests.size(), 1U);
        EXPECT_EQ(bench.prompts.requests[0].filter, "All Files|*.*");
        EXPECT_EQ(bench.prompts.requests[0].directory, folder.path());
        EXPECT_EQ(Field(tool, "txtURL"), "a \"b\" é.JPG");
        EXPECT_EQ(Field(tool, "txtWidth"), "40");
        EXPECT_EQ(Field(tool, "txtHeight"), "30");
        Type(tool, "txtWidth", "7");
        Click(tool, "cmdURL");
        EXPECT_EQ(Field(tool, "txtURL"), "a \"b\" é.JPG") << "the dialog was cancelled";
        EXPECT_EQ(Field(tool, "txtWidth"), "7");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<img src=\"a \"b\" é.JPG\" height=\"30\" width=\"7\" />");
}

TEST_F(GraphicsForm, MeasuresByTheLastThreeLetters) {
    // The content is the same; only the names tell.
    const std::vector<std::pair<QString, bool>> names{{"a.bmp", true}, {"a.gif", true},   {"a.Jpg", true},
                                                      {"xbmp", true},  {"a.jpeg", false}, {"a.png", false},
                                                      {"a.bm", false}};
    for (const auto& [name, measured] : names) {
        bench.prompts.openNames = {Image(name, "BMP")};
        Open<frmGraphics>([&, name = name, measured = measured](frmGraphics& tool) {
            Type(tool, "txtWidth", "1");
            Type(tool, "txtHeight", "2");
            Click(tool, "cmdURL");
            EXPECT_EQ(Field(tool, "txtURL"), name);
            EXPECT_EQ(Field(tool, "txtWidth"), measured ? "40" : "1") << name.toStdString();
            EXPECT_EQ(Field(tool, "txtHeight"), measured ? "30" : "2") << name.toStdString();
        });
    }
}

TEST_F(GraphicsForm, LeavesTheSizeWhenAFileIsNoImage) {
    QFile broken(folder.filePath("broken.gif"));
    ASSERT_TRUE(broken.open(QFile::WriteOnly));
    broken.write("none");
    broken.close();
    bench.prompts.openNames = {broken.fileName(), folder.filePath("missing.gif")};
    Open<frmGraphics>([](frmGraphics& tool) {
        Type(tool, "txtWidth", "1");
        Click(tool, "cmdURL");
        EXPECT_EQ(Field(tool, "txtURL"), "broken.gif");
        Click(tool, "cmdURL");
        EXPECT_EQ(Field(tool, "txtURL"), "missing.gif");
        EXPECT_EQ(Field(tool, "txtWidth"), "1");
        EXPECT_EQ(Field(tool, "txtHeight"), "");
    });
}

TEST_F(GraphicsForm, IsOpenedWithAFile) {
    const QString path = Image("two words.bmp", "BMP");
    InModal<frmGraphics>([&] { ShowTool<frmGraphics>(bench, GraphicsOf(path)); },
                         [](frmGraphics& tool) { QTest::keyClick(tool.focusWidget(), Qt::Key_Return); });
    EXPECT_EQ(Text(), "<img src=\"two words.bmp\" height=\"30\" width=\"40\" />");
    document.Text1->SetText("");
    const QString unmeasured = Image("b.png", "PNG");
    InModal<frmGraphics>([&] { ShowTool<frmGraphics>(bench, GraphicsOf(unmeasured)); },
                         [](frmGraphics& tool) { Click(tool, "cmdOK"); });
    EXPECT_EQ(Text(), "<img src=\"b.png\" />");
}

}  // namespace
}  // namespace vellum::test

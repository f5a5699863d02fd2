// What the style editor writes, as the preview's engine reads it.
#include "tools/styles/style_sheets.h"

#include "tests/preview/preview_fixture.h"
#include "tests/support/page_of.h"

#include <QSignalSpy>

namespace vellum::test {
namespace {

// A value of each property that is offered, but for those that a standard engine has to refuse.
struct Declared {
    std::size_t property;
    QString value;
};

bool IsStandard(const Declared& declared) {
    const QString name = StyleProperties().at(declared.property).name;
    // An old browser's name for the pointer, which the engine knows in pages without a document type alone, and a
    // pattern that the author fills in with four lengths.
    return !(name == "cursor" && declared.value == "hand") &&
           !(name == "clip" && declared.value == "rect(top right bottom left)");
}

std::vector<Declared> AllDeclared() {
    std::vector<Declared> all;
    for (std::size_t i = 0; i < stylePropertyCount; ++i) {
        const QStringList values = i == 0 ? QStringList{"Arial"} : OfferedValues(StyleProperties().at(i));
        for (const QString& value : values) all.push_back({i, value});
    }
    all.push_back({50, "rect(1px 2px 3px 4px)"});
    all.push_back({61, "pointer"});
    return all;
}

StyleValues Only(const Declared& declared) {
    StyleValues values;
    values.at(declared.property) = declared.value;
    return values;
}

class StyleSheetsInThePreview : public PreviewFixture {
protected:
    // Shows a page and returns what a script in it makes of it.
    QStringList Ask(const QString& page, const QString& script) {
        WriteFile(Site("styled.htm"), page.toUtf8());
        QSignalSpy complete(&document_->browser, &BrowserSurface::NavigateComplete);
        document_->browser.Navigate(Site("styled.htm"));
        EXPECT_TRUE(WaitFor([&] { return !complete.isEmpty(); }));
        std::optional<QVariant> answer;
        PageOf(document_->browser)->runJavaScript(script, [&](const QVariant& result) { answer = result; });
        EXPECT_TRUE(WaitFor([&] { return answer.has_value(); }));
        return answer ? answer->toStringList() : QStringList();
    }

    // One text a declaration: what the engine holds of its property; empty where it refused the value.
    static void ExpectRead(const QStringList& held) {
        const std::vector<Declared> all = AllDeclared();
        ASSERT_EQ(held.size(), static_cast<qsizetype>(all.size()));
        for (std::size_t i = 0; i < all.size(); ++i) {
            EXPECT_EQ(!held.at(static_cast<qsizetype>(i)).isEmpty(), IsStandard(all[i]))
                << StyleProperties().at(all[i].property).name << ": " << all[i].value.toStdString();
        }
    }

    static QString Names() {
        QStringList names;
        for (const Declared& declared : AllDeclared()) {
            names << QString("'%1'").arg(StyleProperties().at(declared.property).name);
        }
        return '[' + names.join(',') + ']';
    }
};

TEST_F(StyleSheetsInThePreview, EveryPropertyOfASheetIsSet) {
    std::vector<StyleRule> rules;
    for (const Declared& declared : AllDeclared()) {
        rules.push_back({QString("p.v%1").arg(rules.size()), Only(declared)});
    }
    ExpectRead(Ask("<!DOCTYPE html><html><head>" + StyleSheetText(rules, true) + "</head><body></body></html>",
                   "var names=" + Names() +
                       ",rules=document.styleSheets[0].cssRules,held=[];"
                       "for(var i=0;i<rules.length;i++)held.push(rules[i].selectorText==='p.v'+i?"
                       "rules[i].style.getPropertyValue(names[i]):'out of step');held"));
}

TEST_F(StyleSheetsInThePreview, EveryPropertyOfAnElementIsSet) {
    QString body;
    for (const Declared& declared : AllDeclared()) body += InlineStyle("div", Only(declared), "x");
    ExpectRead(Ask("<!DOCTYPE html><html><body>" + body + "</body></html>",
                   "var names=" + Names() +
                       ",divs=document.getElementsByTagName('div'),held=[];"
                       "for(var i=0;i<divs.length;i++)held.push(divs[i].style.getPropertyValue(names[i]));held"));
}

TEST_F(StyleSheetsInThePreview, AFullSheetStylesItsElement) {
    StyleValues values;
    values.at(1) = "24pt";
    values.at(17) = "#FF8000";
    values.at(29) = "solid";
    values.at(33) = "thick";
    values.at(61) = "help";
    EXPECT_EQ(Ask("<!DOCTYPE html><html><head>" + StyleSheetText({{"body", {}}, {"h1", values}}, true) +
                      "</head><body><h1>x</h1></body></html>",
                  "var s=getComputedStyle(document.querySelector('h1'));"
                  "[s.fontSize,s.color,s.borderLeftStyle,s.borderTopWidth,s.cursor]"),
              (QStringList{"32px", "rgb(255, 128, 0)", "solid", "5px", "help"}));
}

}  // namespace
}  // namespace vellum::test

#include "editor/character_references.h"

#include <QList>

#include <gtest/gtest.h>

namespace vellum {
namespace {

// What is barred, in brackets.
QString Bracketed(const QString& page) {
    QString shown = page;
    const std::vector<BarredRange> bars = FindReferenceBars(page);
    for (auto bar = bars.rbegin(); bar != bars.rend(); ++bar) {
        shown.insert(bar->range.End(), u']');
        shown.insert(bar->range.offset, u'[');
    }
    return shown;
}

TEST(ReferenceBars, LeaveTextAndValuesFree) {
    EXPECT_EQ(Bracketed("plain < text & more > <"), "plain < text & more > <");
    EXPECT_EQ(Bracketed("<p>text</p>"), "[<p]>text[</p]>");
    EXPECT_EQ(Bracketed("<p title=\"a > b\" x='c' y=d z>e"), "[<p] [title]=\"a > b\" [x]='c' [y]=d [z]>e");
    EXPECT_EQ(Bracketed("<br/>a<br />b<1>"), "[<br]/>a[<br] />b<1>");
    EXPECT_EQ(Bracketed("<title>a</title><textarea>b"), "[<title]>a[</title]>[<textarea]>b");
    EXPECT_EQ(Bracketed("<p\nid = 'a'\n>"), "[<p]\n[id] = 'a'\n>");
}

TEST(ReferenceBars, TakeInWhatIsReadAsItStands) {
    EXPECT_EQ(Bracketed("a<!-- b --><!---->c"), "a[<!-- b -->][<!---->]c");
    EXPECT_EQ(Bracketed("<script>a<b</SCRIPT>c"), "[<script]>[a<b][</SCRIPT]>c");
    EXPECT_EQ(Bracketed("<STYLE type='x'>a</style>b"), "[<STYLE] [type]='x'>[a][</style]>b");
    EXPECT_EQ(Bracketed("<script>a"), "[<script]>[a]");
    EXPECT_EQ(Bracketed("<?xml version='1.0'?>a<?php b ?>c"), "[<?xml version='1.0'?>]a[<?php b ?>]c");
    EXPECT_EQ(Bracketed("<!DOCTYPE html>a"), "[<!DOCTYPE html>]a");
    EXPECT_EQ(Bracketed("<!DOCTYPE a [<!ENTITY b 'c'>]>d"), "[<!DOCTYPE a [<!ENTITY b 'c'>]>]d");
    EXPECT_EQ(Bracketed("<![CDATA[a]]>b"), "[<![CDATA[a]]>]b");
    EXPECT_EQ(Bracketed("a<% b %>c"), "a[<% b %>]c");
    EXPECT_EQ(Bracketed("<a href=\"x<%=\"y\"%>z\">"), "[<a] [href]=\"x[<%=\"y\"%>]z\">");
    EXPECT_EQ(Bracketed("<a <%b%> c=<%d%>>e"), "[<a] [<%b%>] [c]=[<%d%>]>e");
    EXPECT_EQ(Bracketed("a<% b"), "a[<% b]");
    EXPECT_EQ(Bracketed("a<p b='c"), "a[<p b='c]");
    EXPECT_EQ(Bracketed("a<p"), "a[<p]");
}

TEST(MarkupFile, IsToldByNameThenByText) {
    EXPECT_TRUE(IsMarkupFile("/a/page.HTM", u"text"));
    EXPECT_TRUE(IsMarkupFile("feed.xml", u""));
    EXPECT_FALSE(IsMarkupFile("style.css", u"<p>"));
    EXPECT_FALSE(IsMarkupFile("notes.txt", u"<p>"));
    EXPECT_FALSE(IsMarkupFile("a.js", u"<p>"));
    EXPECT_TRUE(IsMarkupFile("part.inc", u"\n <p>"));
    EXPECT_FALSE(IsMarkupFile("part.inc", u"text"));
    EXPECT_TRUE(IsMarkupFile("New 2", u"<p>"));
}

TEST(References, CanBeWrittenUnlessOneCharacterStandsWhereNoneIsRead) {
    const auto why = [](QString text, const QString& path = "a.htm") {
        std::vector<TextRange> ranges;
        for (qsizetype at = text.indexOf(u'\u65E5'); at >= 0; at = text.indexOf(u'\u65E5', at + 1)) {
            ranges.push_back({static_cast<int>(at), 1});
        }
        return WhyNoReferences(path, text, ranges);
    };
    EXPECT_EQ(why(u"a\u65E5<p title='\u65E5'>\u65E5</p>"_qs), std::nullopt);
    EXPECT_EQ(why(u"\u65E5"_qs, "a.css"), "the file is no page");
    EXPECT_EQ(why(u"\u65E5<script>\u65E5</script>"_qs), "one stands in a script");
    EXPECT_EQ(why(u"<style>\u65E5"_qs), "one stands in a style sheet");
    EXPECT_EQ(why(u"a<!--\u65E5-->"_qs), "one stands in a comment");
    EXPECT_EQ(why(u"<%\u65E5%>"_qs), "one stands in a server-side block");
    EXPECT_EQ(why(u"<p \u65E5=''>"_qs), "one stands in the name of a tag or an attribute");
    EXPECT_EQ(why(u"<![CDATA[\u65E5]]>"_qs), "one stands in a declaration, an instruction or a CDATA section");
    EXPECT_EQ(why(u"<p title='\u65E5>"_qs), "one stands in a tag that has no end");
    const QString odd = QString("a") + QChar(0xD800) + u"b\u0080"_qs;
    EXPECT_EQ(WhyNoReferences("a.htm", odd, std::vector<TextRange>{{1, 1}}), "no reference can stand for one of them");
    EXPECT_EQ(WhyNoReferences("a.htm", odd, std::vector<TextRange>{{3, 1}}), "no reference can stand for one of them");
}

TEST(References, AreDecimal) {
    EXPECT_EQ(AsReferences(u"\u65E5\U0001F600"), "&#26085;&#128512;");
}

}  // namespace
}  // namespace vellum

// Random texts, made of what markup is made of.
#pragma once

#include <QString>

#include <random>

namespace vellum::test {

// `pieces` pieces, with CR LF line ends; lone CR and LF among them when `loose`.
[[nodiscard]] inline QString RandomMarkup(std::mt19937& random, int pieces, bool loose = false) {
    static const char16_t* const parts[] = {
        u"<",          u">",        u"<",         u">",          u"%",        u"-",      u"!",      u"/",
        u" ",          u"\t",       u"\r\n",      u"a",          u"b",        u"x",      u"td",     u"table",
        u"FRAME",      u"A",        u"<%",        u"%>",         u"<%=",      u"<!--",   u"-->",    u"<script>",
        u"</script>",  u"</SCRIPT", u"<st",       u"</Style>",   u"<style ",  u"<p>",    u"</p>",   u"<a href=",
        u"<tr>",       u"</tbody>", u"</",        u"<</script>", u"\u017F",   u"\u212A", u"\u2029", u"\uFFFD",
        u"\U0001F600", u"Colgroup", u"noframes>", u"word ",      u"<ſcript>", u"\r",     u"\n"};
    constexpr std::size_t count = std::size(parts);
    QString text;
    for (int index = 0; index < pieces; ++index) {
        text += QStringView(parts[random() % (loose ? count : count - 2)]);
    }
    return text;
}

}  // namespace vellum::test

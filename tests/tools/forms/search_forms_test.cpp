#include "tools/forms/search_forms.h"

#include <QRegularExpression>
#include <QUrl>

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(SearchForms, AreOfSixEngines) {
    EXPECT_EQ(SearchEngineNames(),
              (QStringList{"Altavista", "Excite", "MSN Shortcut Bar", "National Directory", "Webcrawler", "Yahoo"}));
}

TEST(SearchForms, AskAltavista) {
    EXPECT_EQ(SearchMarkup("Altavista"),
              "<form method=\"get\" action=\"http://www.altavista.com/cgi-bin/query\">\r\n"
              "<input type=\"hidden\" name=\"pg\" value=\"q\" />\r\n"
              "<input name=\"q\" SIZE=30 maxlength=\"200\" value=\"\" />\r\n"
              "<input type=\"submit\" value=\"Altavista\" />\r\n"
              "</form>");
}

TEST(SearchForms, AskExcite) {
    EXPECT_EQ(SearchMarkup("Excite"),
              "<form name=\"search\" action=\"https://www.excite.com/search.gw\" method=\"get\">\r\n"
              "<input type=\"hidden\" name=\"trace\" value=\"a\" />\r\n"
              "<input name=\"search\" size=\"30\" />\r\n"
              "<input type=\"submit\" value=\"Excite\" />\r\n"
              "</form>");
}

TEST(SearchForms, GoToTheServicesOfMsn) {
    EXPECT_EQ(SearchMarkup("MSN Shortcut Bar"),
              "<form>\r\n"
              "<select name=\"MSNBar\" id=\"MSNBar\">\r\n"
              "<option value=\"https://www.msn.com/\">- The Microsoft Network -</option>\r\n"
              "<option value=\"https://www.hotmail.com/\">Hotmail</option>\r\n"
              "<option value=\"https://www.msnbc.com/\">MSNBC News</option>\r\n"
              "<option value=\"http://investor.msn.com/\">Microsoft Investor</option>\r\n"
              "<option value=\"http://www.zone.com/\">Internet Gaming Zone</option>\r\n"
              "<option value=\"http://carpoint.msn.com/\">Microsoft CarPoint</option>\r\n"
              "<option value=\"https://www.expedia.com/\">Expedia Maps</option>\r\n"
              "<option value=\"http://www.sidewalk.com/\">Sidewalk City Guides</option>\r\n"
              "<option value=\"http://encarta.msn.com/\">Microsoft Encarta</option>\r\n"
              "<option value=\"http://plaza.msn.com/\">Microsoft Plaza</option>\r\n"
              "<option value=\"https://slate.com/\">Slate</option>\r\n"
              "</select>\r\n"
              "<button onclick=\"location.href=MSNBar.value\">Go</button>\r\n"
              "</form>");
}

TEST(SearchForms, AskNationalDirectory) {
    EXPECT_EQ(SearchMarkup("National Directory"),
              "<form method=\"get\" action=\"http://www.nationaldirectory.com/cgi-bin/query\">\r\n"
              "<input name=\"query\" size=\"30\" maxlength=\"100\" wrap=\"virtual\" value=\"\" />\r\n"
              "<input type=\"submit\" value=\"National Directory\" />\r\n"
              "</form>");
}

TEST(SearchForms, AskWebcrawler) {
    EXPECT_EQ(SearchMarkup("Webcrawler"),
              "<form name=\"wcsearchform\" action=\"https://www.webcrawler.com/cgi-bin/WebQuery\" method=\"get\">\r\n"
              "<input type=\"text\" name=\"searchText\" SIZE=\"25\" />\r\n"
              "<input type=\"submit\" value=\"Webcrawler\" />\r\n"
              "</form>");
}

TEST(SearchForms, AskYahoo) {
    EXPECT_EQ(SearchMarkup("Yahoo"),
              "<form action=\"https://search.yahoo.com/bin/search\">\r\n"
              "<input size=\"30\" name=\"p\" /><input type=\"submit\" value=\"Yahoo\" />\r\n"
              "</form>");
}

TEST(SearchForms, LeadToAddressesThatCanBeAsked) {
    int addresses = 0;
    for (const QString& engine : SearchEngineNames()) {
        const QRegularExpression address("(?:action|option value)=\"([^\"]*)\"");
        for (auto found = address.globalMatch(SearchMarkup(engine)); found.hasNext(); ++addresses) {
            const QUrl url(found.next().captured(1), QUrl::StrictMode);
            EXPECT_TRUE(url.isValid()) << engine.toStdString();
            EXPECT_TRUE(url.host().contains('.')) << engine.toStdString();
            EXPECT_TRUE(url.path().startsWith('/')) << engine.toStdString();
        }
    }
    EXPECT_EQ(addresses, 16);
}

TEST(SearchForms, AreNoneOfAnotherEngine) {
    EXPECT_EQ(SearchMarkup(""), "");
    EXPECT_EQ(SearchMarkup("yahoo"), "");
}

}  // namespace
}  // namespace vellum

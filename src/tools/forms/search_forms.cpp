#include "tools/forms/search_forms.h"

#include "surface/document_text.h"
#include "tools/framework/attributes.h"

#include <algorithm>
#include <iterator>

namespace vellum {
namespace {

// Where a form leads: one address, or one for each entry of a list.
struct Endpoint {
    const char* form;
    const char* entry;
    const char* address;
};

// Encrypted where the service, or what has followed it under its name, answers so; the others have closed.
constexpr Endpoint endpoints[] = {
    {"Altavista", "", "http://www.altavista.com/cgi-bin/query"},
    {"Excite", "", "https://www.excite.com/search.gw"},
    {"MSN Shortcut Bar", "- The Microsoft Network -", "https://www.msn.com/"},
    {"MSN Shortcut Bar", "Hotmail", "https://www.hotmail.com/"},
    {"MSN Shortcut Bar", "MSNBC News", "https://www.msnbc.com/"},
    {"MSN Shortcut Bar", "Microsoft Investor", "http://investor.msn.com/"},
    {"MSN Shortcut Bar", "Internet Gaming Zone", "http://www.zone.com/"},
    {"MSN Shortcut Bar", "Microsoft CarPoint", "http://carpoint.msn.com/"},
    {"MSN Shortcut Bar", "Expedia Maps", "https://www.expedia.com/"},
    {"MSN Shortcut Bar", "Sidewalk City Guides", "http://www.sidewalk.com/"},
    {"MSN Shortcut Bar", "Microsoft Encarta", "http://encarta.msn.com/"},
    {"MSN Shortcut Bar", "Microsoft Plaza", "http://plaza.msn.com/"},
    {"MSN Shortcut Bar", "Slate", "https://slate.com/"},
    {"National Directory", "", "http://www.nationaldirectory.com/cgi-bin/query"},
    {"Webcrawler", "", "https://www.webcrawler.com/cgi-bin/WebQuery"},
    {"Yahoo", "", "https://search.yahoo.com/bin/search"},
};

struct SearchForm {
    const char* engine;
    const char* lines;  // %1 is where it leads
};

constexpr SearchForm forms[] = {
    {"Altavista", R"(<form method="get" action="%1">
<input type="hidden" name="pg" value="q" />
<input name="q" SIZE=30 maxlength="200" value="" />
<input type="submit" value="Altavista" />
</form>)"},
    {"Excite", R"(<form name="search" action="%1" method="get">
<input type="hidden" name="trace" value="a" />
<input name="search" size="30" />
<input type="submit" value="Excite" />
</form>)"},
    {"MSN Shortcut Bar", R"(<form>
<select name="MSNBar" id="MSNBar">
%1</select>
<button onclick="location.href=MSNBar.value">Go</button>
</form>)"},
    {"National Directory", R"(<form method="get" action="%1">
<input name="query" size="30" maxlength="100" wrap="virtual" value="" />
<input type="submit" value="National Directory" />
</form>)"},
    {"Webcrawler", R"(<form name="wcsearchform" action="%1" method="get">
<input type="text" name="searchText" SIZE="25" />
<input type="submit" value="Webcrawler" />
</form>)"},
    {"Yahoo", R"(<form action="%1">
<input size="30" name="p" /><input type="submit" value="Yahoo" />
</form>)"},
};

// An address, or a line for each entry.
QString Destination(const QString& form) {
    QString destination;
    for (const Endpoint& endpoint : endpoints) {
        if (form != QLatin1String(endpoint.form)) continue;
        const QString entry = endpoint.entry;
        if (entry.isEmpty()) return endpoint.address;
        destination += "<option" + Attribute("value", endpoint.address) + '>' + entry + "</option>\n";
    }
    return destination;
}

}  // namespace

QStringList SearchEngineNames() {
    QStringList names;
    for (const SearchForm& form : forms) names << form.engine;
    return names;
}

QString SearchMarkup(const QString& engine) {
    const auto* const form = std::find_if(std::begin(forms), std::end(forms),
                                          [&](const SearchForm& row) { return engine == QLatin1String(row.engine); });
    return form == std::end(forms) ? QString() : WithCrLf(QString(form->lines).arg(Destination(engine)));
}

}  // namespace vellum

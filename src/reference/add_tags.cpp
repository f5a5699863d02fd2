#include "reference/add_tags.h"

#include "files/paths.h"
#include "reference/entity_reader.h"
#include "reference/script_vocabulary.h"
#include "settings/settings_keys.h"

#include <array>
#include <span>
#include <stdexcept>

namespace vellum {
namespace {

struct TypeFile {
    const char* title;
    const char* file;
};

// The document types of one setting, which are read until one of them fails.
struct TypeBlock {
    const SettingKey& setting;
    std::span<const TypeFile> files;
};

constexpr std::array<TypeFile, 3> xhtmlTypes{{{"XHTML1 Transitional", "xhtml1-transitional.dtd"},
                                              {"XHTML1 Strict", "xhtml1-strict.dtd"},
                                              {"XHTML1 Frameset", "xhtml1-frameset.dtd"}}};
constexpr std::array<TypeFile, 1> smil{{{"SMIL 1.0", "smil.dtd"}}};
constexpr std::array<TypeFile, 1> svg{{{"Scalable Vector Graphics 1.0", "svg.dtd"}}};
constexpr std::array<TypeFile, 2> openEbook{
    {{"OpenEBook Documents 1.0 ", "oebdoc1.dtd"}, {"OpenEBook Packages 1.0 ", "oebpkg1.dtd"}}};
constexpr std::array<TypeFile, 1> wml{{{"Wireless Markup Language 1.3", "wml13.dtd"}}};
constexpr std::array<TypeFile, 1> x3d{{{"Extensible 3D (X3D)", "x3d-compromise.dtd"}}};
constexpr std::array<TypeFile, 3> entities{{{"Latin Characters", "xhtml-lat1.ent"},
                                            {"Symbol Characters", "xhtml-symbol.ent"},
                                            {"Special Characters", "xhtml-special.ent"}}};

// Runs a part of the building whose failure ends only that part.
template <typename Part>
void Guarded(const Part& part) {
    try {
        part();
    } catch (const ReadingFailed&) {
        return;
    } catch (const std::out_of_range&) {
        return;
    }
}

// No folder is none, rather than the one that the program happens to run in.
QString PathIn(const QString& folder, const char* file) {
    return folder.isEmpty() ? QString() : JoinPath(folder, QString::fromLatin1(file));
}

const TypeFile* ChosenXhtml(const SettingsStore& settings) {
    const QString choice = ReadSetting(settings, keys::dtdXhtml);
    for (std::size_t index = 0; index < xhtmlTypes.size(); ++index) {
        if (choice == QString::number(index)) return &xhtmlTypes[index];
    }
    return nullptr;
}

void AddDocumentTypes(ReferenceTree& tree, const SettingsStore& settings, const QString& folder,
                      const CaptionHook& caption) {
    const auto read = [&](const TypeFile& type, int& index, int parentIndex) {
        index = AddDtD(tree, index, PathIn(folder, type.file), parentIndex, type.title, caption);
    };
    int index = 2;
    Guarded([&] {
        if (const TypeFile* type = ChosenXhtml(settings)) read(*type, index, 1);
    });
    const std::array<TypeBlock, 5> blocks{{{keys::dtdSmil, smil},
                                           {keys::dtdSvg, svg},
                                           {keys::dtdOpen, openEbook},
                                           {keys::dtdWml, wml},
                                           {keys::dtdX3d, x3d}}};
    for (const TypeBlock& block : blocks) {
        if (ReadSetting(settings, block.setting) != QLatin1String("1")) continue;
        Guarded([&] {
            for (const TypeFile& type : block.files) {
                ++index;
                read(type, index, index - 1);
            }
        });
    }
}

void AddCharacterSets(ReferenceTree& tree, const QString& folder) {
    int index = tree.Count();
    tree.AddRoot(NodeKind::Text, QStringLiteral("Character Sets"));
    int parentIndex = ++index;
    Guarded([&] {
        for (const TypeFile& set : entities) {
            index = AddEnt(tree, index, PathIn(folder, set.file), parentIndex, set.title);
        }
    });
}

void AddVocabulary(ReferenceTree& tree, const QString& title, const std::vector<VocabularyGroup>& groups) {
    const int root = tree.AddRoot(NodeKind::Text, title);
    for (const VocabularyGroup& group : groups) {
        const int relative = tree.AddNoder(root, NodeKind::Text, group.name);
        for (const QString& item : group.items) tree.AddNoder(relative, group.kind, item);
    }
}

void AddList(ReferenceTree& tree, NodeKind kind, const QString& title, const QStringList& items) {
    const int root = tree.AddRoot(kind, title);
    for (const QString& item : items) tree.AddNoder(root, NodeKind::Text, item);
}

// The locale's long time without the name of the time zone, which some put between brackets.
QString LongTime(const QTime& time, const QLocale& locale) {
    QString format;
    bool quoted = false;
    for (const QChar c : locale.timeFormat(QLocale::LongFormat)) {
        if (c == u'\'') quoted = !quoted;
        if (quoted || c != u't') format += c;
    }
    return locale.toString(time, format.remove(QLatin1String("()")).remove(QLatin1String("[]")).simplified());
}

}  // namespace

void AddTags(ReferenceTree& tree, const SettingsStore& settings, const QString& dtdFolder, const CaptionHook& caption) {
    tree.Clear();
    AddDocumentTypes(tree, settings, dtdFolder, caption);
    AddCharacterSets(tree, dtdFolder);
    tree.SetBold(1, true);
    int index = tree.Count() + 1;
    AddTags3(tree, settings, index);
}

void AddTags3(ReferenceTree& tree, const SettingsStore& settings, int& index) {
    AddVocabulary(tree, QStringLiteral("JScript 5.0 Language"), JScriptVocabulary());
    index = tree.Count();
    AddTags5(tree, settings, index);
}

void AddTags5(ReferenceTree& tree, const SettingsStore& settings, int& index) {
    AddVocabulary(tree, QStringLiteral("VBScript 5.0 Language"), VbScriptVocabulary());
    index = tree.Count();
    AddTags4(tree, settings, index);
}

void AddTags4(ReferenceTree& tree, const SettingsStore& settings, int& index) {
    AddList(tree, NodeKind::Dates, QStringLiteral("Date/Time"), {"1", "2", "3", "4", "5", "6", "7"});
    AddList(tree, NodeKind::Text, QStringLiteral("Emoticons"), Emoticons());
    AddList(tree, NodeKind::Text, QStringLiteral("Custom List"),
            ReadListSetting(settings, keys::customTagsCount, keys::customTagsEntry).value_or(QStringList()));
    index = tree.Count();
}

QStringList DateTimeTexts(const QDateTime& moment, const QLocale& locale) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    const QString shortDate = locale.toString(date, QLocale::ShortFormat);
    const QString longTime = LongTime(time, locale);
    return {shortDate + u' ' + longTime,
            locale.toString(date, QLocale::LongFormat),
            locale.toString(date, QStringLiteral("dd-MMM-yy")),
            shortDate,
            longTime,
            locale.toString(time, QStringLiteral("hh:mm AP")),
            locale.toString(time, QStringLiteral("HH:mm"))};
}

}  // namespace vellum

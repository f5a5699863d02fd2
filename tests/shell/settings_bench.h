// A main window of ten lines for the settings: a workbench with a store of its own, and a target that records.
#pragma once

#include "editor/document.h"
#include "editor/workbench.h"
#include "settings/settings_keys.h"
#include "shell/settings_fields.h"
#include "tests/support/test_workbench.h"

#include <QTemporaryDir>

#include <vector>

namespace vellum::test {

// What happened, in order. The keys that had been written by then stand with each event.
struct SettingsEvent {
    QString what;
    QStringList written;
};

class SettingsBench : public TestWorkbench, public SettingsTarget {
public:
    SettingsBench() { imageTypes = QStringList{".bmp", ".jpg"}; }

    [[nodiscard]] Document* ActiveDocument() const override { return document; }
    [[nodiscard]] SettingsStore& Settings() override { return store; }
    [[nodiscard]] QString OpenDocCount() const override { return openDocCount; }
    [[nodiscard]] QStringList FontNames() const override { return {"Arial", "Courier New", "Times"}; }
    void Smartcolor() override { Record("Smartcolor"); }

    void SetImageTypes(const QStringList& types) override {
        imageTypes = types;
        Record("SetImageTypes " + types.join(u' '));
    }
    void SetDocumentTypes(const QStringList& types) override {
        documentTypes = types;
        Record("SetDocumentTypes " + types.join(u' '));
    }
    void SetCustomCaption(int row, const QString& caption) override {
        Record(QStringLiteral("SetCustomCaption %1 %2").arg(row).arg(caption));
    }
    void ApplyEditorFont(const QString& family, const QString& pointSize) override {
        Record("ApplyEditorFont " + family + u' ' + pointSize);
    }
    void ApplyRefreshInterval(int milliseconds) override {
        Record(QStringLiteral("ApplyRefreshInterval %1").arg(milliseconds));
    }
    void PaintActiveDocument(ColorNumber color) override {
        Record(QStringLiteral("PaintActiveDocument %1").arg(color));
    }
    void AddTags() override { Record("AddTags"); }

    [[nodiscard]] QStringList What() const {
        QStringList list;
        for (const SettingsEvent& event : events) list << event.what;
        return list;
    }

    [[nodiscard]] QString Stored(const SettingKey& key) const {
        return store.Read(key.application, key.section, key.key, QStringLiteral("(none)"));
    }
    [[nodiscard]] QString StoredEntry(const SettingKey& family, int index) const {
        return store.Read(family.application, family.section, QString::number(index), QStringLiteral("(none)"));
    }

    QTemporaryDir folder;
    SettingsStore store{folder.filePath("settings.json")};
    QString openDocCount = "1";
    Document* document = nullptr;
    std::vector<SettingsEvent> events;

private:
    void Record(const QString& what) {
        QStringList written;
        for (const SettingKey* key : AllSettingKeys()) {
            if (store.Contains(key->application, key->section, key->key)) {
                written << key->section.toString() + u'/' + key->key.toString();
            }
        }
        for (int row = 0; row < customButtonCount; ++row) {
            for (const char* kind : {"0", "1"}) {
                const QString name = kind + QString::number(row);
                if (store.Contains(preferencesApplication, u"Custom", name)) written << "Custom/" + name;
            }
        }
        events.push_back({what, written});
    }
};

}  // namespace vellum::test

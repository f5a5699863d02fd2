// A main window of ten lines for the settings: a workbench with a store of its own, and a target that records.
#pragma once

#include "editor/document.h"
#include "editor/workbench.h"
#include "settings/settings_keys.h"
#include "shell/settings_fields.h"
#include "tests/support/test_workbench.h"

#include <QTemporaryDir>

namespace vellum::test {

class SettingsBench : public TestWorkbench, public SettingsTarget {
public:
    SettingsBench() {
        imageTypes = QStringList{".bmp", ".jpg"};
        QObject::connect(&Options(), &SharedOptions::Changed, &Options(), [this] { events << "Options"; });
    }

    [[nodiscard]] Document* ActiveDocument() const override { return document; }
    [[nodiscard]] SettingsStore& Settings() override { return store; }
    [[nodiscard]] QStringList FontNames() const override { return {"Arial", "Courier New", "Times"}; }
    void Smartcolor() override { events << "Smartcolor"; }

    void SetImageTypes(const QStringList& types) override {
        imageTypes = types;
        events << "SetImageTypes " + types.join(u' ');
    }
    void SetDocumentTypes(const QStringList& types) override {
        documentTypes = types;
        events << "SetDocumentTypes " + types.join(u' ');
    }
    void SetCustomCaption(int row, const QString& caption) override {
        events << QStringLiteral("SetCustomCaption %1 %2").arg(row).arg(caption);
    }
    void ApplyEditorFont(const QString& family, const QString& pointSize) override {
        events << "ApplyEditorFont " + family + u' ' + pointSize;
    }
    void PaintActiveDocument(ColorNumber color) override {
        events << QStringLiteral("PaintActiveDocument %1").arg(color);
    }
    void AddTags() override { events << "AddTags"; }

    void ReadOptions() { Options().Set(ReadEditorOptions(store)); }

    [[nodiscard]] QString Stored(const SettingKey& key) const {
        return store.Read(key.application, key.section, key.key, QStringLiteral("(none)"));
    }
    [[nodiscard]] QString StoredEntry(const SettingKey& family, int index) const {
        return store.Read(family.application, family.section, QString::number(index), QStringLiteral("(none)"));
    }

    QTemporaryDir folder;
    SettingsStore store{folder.filePath("settings.json")};
    Document* document = nullptr;
    QStringList events;  // what happened, in order
};

}  // namespace vellum::test

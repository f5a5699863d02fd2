// A main window of ten lines: settings of its own, scripted prompts, one active document.
#pragma once

#include "editor/document.h"
#include "editor/reference_tree.h"
#include "editor/workbench.h"
#include "settings/settings_keys.h"
#include "tests/support/scripted_prompts.h"

#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>

namespace vellum::test {

class TestWorkbench : public Workbench {
public:
    TestWorkbench() { Options().Set(ReadEditorOptions(settings_)); }

    [[nodiscard]] Document* ActiveDocument() const override { return active; }
    [[nodiscard]] QList<Document*> Documents() const override {
        return ActiveDocument() ? QList{ActiveDocument()} : QList<Document*>();
    }
    [[nodiscard]] SettingsStore& Settings() override { return settings_; }
    [[nodiscard]] Prompts& Ask() override { return prompts; }
    [[nodiscard]] QWidget* Window() override { return nullptr; }
    [[nodiscard]] int OpenDocCount() const override { return count; }
    [[nodiscard]] bool UsePreview() const override { return usePreview; }
    void ShowStatus(StatusPanel panel, const QString& text) override { panels[panel] = text; }
    [[nodiscard]] QStringList FontNames() const override { return fontNames; }
    [[nodiscard]] QString WebsiteDirectory() const override { return website; }
    void RefreshWebsite() override { ++websiteRefreshed; }
    [[nodiscard]] QStringList ImageTypes() const override { return imageTypes; }
    [[nodiscard]] QStringList DocumentTypes() const override { return documentTypes; }
    void OpenInNewWindow(const QString& path, const QString& failure) override {
        opened << path;
        if (!QFileInfo(path).isReadable()) prompts.Message(nullptr, failure, {});
    }
    [[nodiscard]] const ReferenceTree& References() const override { return references; }
    Document* NewForm() override { return nullptr; }

    Document* active = nullptr;
    ScriptedPrompts prompts;
    ReferenceTree references;
    QMap<StatusPanel, QString> panels;  // what each panel of the status bar shows
    int count = 1;                      // open documents
    bool usePreview = true;
    QString website;
    QStringList fontNames;
    QStringList imageTypes{".bmp", ".jpg", ".gif", ".png", ".wrl"};
    QStringList documentTypes{".htm", ".txt"};
    QStringList opened;  // paths that were to be opened
    int websiteRefreshed = 0;

    // Stores a setting as the settings dialog does: the options follow.
    void Store(const SettingKey& key, const QString& value) {
        WriteSetting(Settings(), key, value);
        Options().Set(ReadEditorOptions(Settings()));
    }

private:
    QTemporaryDir folder_;
    SettingsStore settings_{folder_.filePath("settings.json")};
};

class PlainDocument : public Document {
public:
    using Document::Document;
    void ResizeMe() override { ++laidOut; }

    int laidOut = 0;
};

}  // namespace vellum::test

// The main window: owns every part of the program and wires them to one another.
#pragma once

#include "editor/reference_tree.h"
#include "editor/workbench.h"
#include "shell/file_commands.h"
#include "shell/internet_pages.h"
#include "shell/main_regions.h"
#include "shell/open_documents.h"
#include "shell/outside_changes.h"
#include "shell/recovery_keeper.h"
#include "shell/settings_fields.h"

#include <functional>

namespace vellum {

class RecoveryStore;
class WebsiteCommands;

class MDIform1 : public MainRegions, public Workbench, public SettingsTarget {
    Q_OBJECT
public:
    MDIform1(SettingsStore& settings, Prompts& prompts, RecoveryStore& recovery, QStringList fontNames,
             bool usePreview);
    ~MDIform1() override;

    // Restores the state, builds the tree, shows the window and makes the first document, from the file of the command
    // line when there is one. Then asks about texts that a crash left behind, or shows the tips. `splashDone` runs just
    // before the window shows.
    void Load(const QString& commandLine, const std::function<void()>& splashDone);

    // Workbench
    Document* ActiveDocument() const override { return documents.Active(); }
    QList<Document*> Documents() const override { return documents.All(); }
    SettingsStore& Settings() override { return settings_; }
    Prompts& Ask() override { return prompts_; }
    QWidget* Window() override { return this; }
    int OpenDocCount() const override { return documents.OpenDocCount(); }
    void ShowStatus(StatusPanel panel, const QString& text) override;
    bool UsePreview() const override { return usePreview_; }
    QStringList FontNames() const override;
    QString WebsiteDirectory() const override;
    void RefreshWebsite() override;
    QStringList ImageTypes() const override;
    QStringList DocumentTypes() const override;
    const ReferenceTree& References() const override { return references_; }
    Document* NewForm() override;
    void OpenInNewWindow(const QString& path, const QString& failure) override;

    // SettingsTarget
    void SetImageTypes(const QStringList& types) override;
    void SetDocumentTypes(const QStringList& types) override;
    void SetCustomCaption(int row, const QString& caption) override;
    void ApplyEditorFont(const QString& family, const QString& pointSize) override;
    void PaintActiveDocument(ColorNumber color) override;
    void AddTags() override;

    // What the commands work on.
    OpenDocuments documents;
    [[nodiscard]] FileCommands& Files() { return files_; }
    [[nodiscard]] InternetPages& Internet() { return internet_; }
    [[nodiscard]] WebsiteCommands& Website() { return *website_; }

    virtual void startup();  // the tips, when the author wants them

signals:
    void DocumentsOpen(bool open);  // the commands that need a document are on, or off
    void Unloaded();                // the window has gone; the process may end

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void WireCommands();
    void WireRegions();
    void FollowOptions();
    void WireDocument(DocumentWindow* window);
    void SetWrapChecked(bool checked);
    void ShowRecentFiles();
    void TellDocumentCount();
    void ShowActiveDocument();
    void ShowDocumentFacts(const Document& document);

    SettingsStore& settings_;
    Prompts& prompts_;
    FileCommands files_;
    InternetPages internet_;
    RecoveryKeeper recovery_;
    OutsideChanges outside_;
    WebsiteCommands* website_ = nullptr;  // the panel owns it
    const QStringList fontNames_;
    const bool usePreview_;
    ReferenceTree references_;
};

}  // namespace vellum

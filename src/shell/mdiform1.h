// The main window: owns every region and wires the parts to one another.
#pragma once

#include "editor/reference_tree.h"
#include "editor/workbench.h"
#include "shell/file_commands.h"
#include "shell/frm_settings.h"
#include "shell/layout.h"
#include "shell/recovery_keeper.h"

#include <QMainWindow>

#include <functional>

class QLineEdit;
class QListWidget;
class QMdiArea;
class QMdiSubWindow;
class QTreeWidget;

namespace vellum {

class ColorBar;
class DocumentWindow;
class EditSurface;
class MainToolbar;
class RecoveryStore;
class StatusBar;
class TabStrip;
class WebsiteCommands;
class WebsitePanel;

class MDIform1 : public QMainWindow, public Workbench, public SettingsTarget {
    Q_OBJECT
public:
    MDIform1(SettingsStore& settings, Prompts& prompts, RecoveryStore& recovery, QStringList fontNames,
             bool usePreview);
    ~MDIform1() override;

    // Restores the state, builds the tree, shows the window and makes the first document, from the file of the command
    // line when there is one. Then asks about texts that a crash left behind, or shows the tips. `splashDone` runs just
    // before the window shows.
    void Load(const QString& commandLine, const std::function<void()>& splashDone);

    // Regions, from the top.
    MainToolbar* const Picture1;
    ColorBar* const Picture14;
    TabStrip* const clrbutton;
    QWidget* const Picture15;  // custom bar
    TabStrip* const TabStrip2;
    TabStrip* const TabStrip1;  // tag bar
    QMdiArea* const area;       // the document windows
    WebsitePanel* const Picture11;
    StatusBar* const StatusBar1;

    // Hidden helpers.
    QListWidget* const List4;        // image file types
    QListWidget* const lstDocTypes;  // document file types
    QListWidget* const List6;        // font names
    EditSurface* const RichTextBox1;
    QLineEdit* const Text5;  // the count of open documents

    // Workbench
    Document* ActiveDocument() const override;
    SettingsStore& Settings() override { return settings_; }
    Prompts& Ask() override { return prompts_; }
    QWidget* Window() override { return this; }
    QString OpenDocCount() const override;
    void SetOpenDocCount(const QString& count) override;
    void ShowStatus(StatusPanel panel, const QString& text) override;
    bool UsePreview() const override { return usePreview_; }
    QStringList FontNames() const override;
    QString WebsiteDirectory() const override;
    void RefreshWebsite() override;
    QStringList ImageTypes() const override;
    QStringList DocumentTypes() const override;
    const ReferenceTree& References() const override { return references_; }
    void AddRecentFile(const QString& path) override;
    void SetWrapChecked(bool checked) override;
    Document* CreateDocument() override;
    void OpenInNewWindow(const QString& path, const QString& failure) override;
    void LoadPage(QString& html) override;

    // SettingsTarget
    void SetImageTypes(const QStringList& types) override;
    void SetDocumentTypes(const QStringList& types) override;
    void SetCustomCaption(int row, const QString& caption) override;
    void ApplyEditorFont(const QString& family, const QString& pointSize) override;
    void PaintActiveDocument(ColorNumber color) override;
    void AddTags() override;

    // What the commands work on.
    [[nodiscard]] FileCommands& Files() { return files_; }
    [[nodiscard]] WebsiteCommands& Website() { return *website_; }
    [[nodiscard]] QAction* Item(const QString& name) const;  // of a menu; null when there is no such item
    [[nodiscard]] QWidget* Region(int index) const;          // that mnuViewItem(index) shows and hides
    void ApplyLayout();
    void StepPane(int step);  // gives the keyboard to the next pane, or with -1 to the one before
    bool UnloadActiveDocument();

    virtual void startup();  // the tips, when the author wants them
    void ColorBarSetup();    // paints the colour bar

signals:
    void DocumentsOpen(bool open);  // the commands that need a document are on, or off
    void Unloaded();                // the window has gone; the process may end

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildBars();
    void BuildRegions();
    void BuildMenus();
    void WireRegions();
    void BuildShortcuts();
    void RestoreWindow();
    void FollowOptions();
    void RestoreTypes();
    void RestoreView();
    void RestoreWebsite();
    void RestoreRecentFiles();
    void StoreFonts();
    void WriteState();
    void MakeFirstDocument(const QString& commandLine);
    void ShowRecentFiles();
    void TellDocumentCount();
    void PlaceLists();
    void DragPanel(int pointerY, DragPhase phase);
    void SetPanelHeight(int twips);
    void ShowActiveDocument();
    void ShowDocumentFacts(const Document& document);

    SettingsStore& settings_;
    Prompts& prompts_;
    FileCommands files_;
    RecoveryKeeper recovery_;
    WebsiteCommands* website_ = nullptr;  // the panel owns it
    const QStringList fontNames_;
    const bool usePreview_;
    ReferenceTree references_;
    MainLayout layout_;
    bool laidOut_ = false;
};

}  // namespace vellum

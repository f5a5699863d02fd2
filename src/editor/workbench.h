// What all code may see of the main window: the active document, the options, the one way of text into a document, the
// status bar. MDIform1 is one; a test makes another.
#pragma once

#include "editor/editor_options.h"
#include "settings/settings_store.h"
#include "widgets/prompts.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>

class QWidget;

namespace vellum {

class Document;
class ReferenceTree;

// The panels of the status bar, by their numbers.
enum class StatusPanel { Saved = 1, Length, Hint, Work, OpenDocuments, Line };

class Workbench {
public:
    Workbench() = default;
    virtual ~Workbench() = default;
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    [[nodiscard]] virtual Document* ActiveDocument() const = 0;    // null when no document is open
    [[nodiscard]] virtual QList<Document*> Documents() const = 0;  // all open ones
    [[nodiscard]] virtual SettingsStore& Settings() = 0;
    [[nodiscard]] virtual Prompts& Ask() = 0;
    [[nodiscard]] virtual QWidget* Window() = 0;  // the parent of dialogs
    [[nodiscard]] SharedOptions& Options() { return options_; }
    [[nodiscard]] virtual bool UsePreview() const = 0;  // the session's document kind, fixed at start

    // At 0 the commands that need a document are off. One more than there are documents after a close whose save dialog
    // was left without a name.
    [[nodiscard]] virtual int OpenDocCount() const = 0;

    virtual void ShowStatus(StatusPanel panel, const QString& text) = 0;
    void SetHint(const QString& text) { ShowStatus(StatusPanel::Hint, text); }

    [[nodiscard]] virtual QStringList FontNames() const = 0;
    [[nodiscard]] virtual QString WebsiteDirectory() const = 0;  // the directory that File2 shows
    virtual void RefreshWebsite() = 0;                           // File2 reads its directory again
    // What the names of images and of documents hold, as ".gif" (List4, lstDocTypes).
    [[nodiscard]] virtual QStringList ImageTypes() const = 0;
    [[nodiscard]] virtual QStringList DocumentTypes() const = 0;

    // What the panel TreeView1 shows.
    [[nodiscard]] virtual const ReferenceTree& References() const = 0;

    // Paints the markup of the active document: all of it, or the range that ColorSpanStart and ColorSpanLength tell,
    // which is an offset and a number of characters; a length of 0 asks for all.
    std::int32_t ColorSpanStart = 0;
    std::int32_t ColorSpanLength = 0;
    virtual void Smartcolor();
    // Puts markup in place of the active document's selection, in the colours of the place, as one step of undo.
    // `markup` may come back with the indentation of the line.
    virtual void PortableColor(QString& markup);
    // The selection between `open` and `close` goes the same way; `open` alone when `close` is empty.
    void Addstuff(const QString& open, const QString& close);

    // A blank document with its number, counted among the open ones.
    virtual Document* NewForm() = 0;
    // Opens a file in a window of its own and counts it. When it can't be read, the window stays, blank, and `failure`
    // is shown.
    virtual void OpenInNewWindow(const QString& path, const QString& failure) = 0;

private:
    SharedOptions options_;
};

// True for documents that get no colours and no markup assists, told by the caption's last letters alone.
[[nodiscard]] bool IsScriptCaption(const QString& caption);

}  // namespace vellum

// "About...": the version, the terms, the sources of the document types, and the facts of the machine.
#pragma once

#include "editor/workbench.h"
#include "system/system_facts.h"

#include <QDialog>

#include <functional>
#include <span>

class QLayout;
class QPlainTextEdit;
class QPushButton;
class QTextEdit;

namespace vellum {

struct DtdCredit {
    const char* name;
    const char* text;
};

// The sources of the document types that come with the program.
[[nodiscard]] std::span<const DtdCredit> DtdCredits();

// The facts as the dialog lists them, lines separated by CR LF.
[[nodiscard]] QString SystemFactsText(const SystemFacts& facts);

class frmAbout : public QDialog {
    Q_OBJECT
public:
    // Opens an address in the desktop's program; false when there is none.
    using Opener = std::function<bool(const QString& address)>;

    // Without an opener, the desktop opens addresses.
    explicit frmAbout(Workbench& bench, const SystemFacts& facts = ReadSystemFacts(), Opener open = {});

private:
    [[nodiscard]] QLayout* BuildHeader();
    [[nodiscard]] QLayout* BuildTexts(const SystemFacts& facts);
    [[nodiscard]] QLayout* BuildButtons();
    void FitToScreen();
    void OpenSite();

    Workbench& bench_;
    Opener open_;
    QPlainTextEdit* const Text1;  // the disclaimer
    QPlainTextEdit* const Text2;  // the machine
    QTextEdit* const Text3;       // the credits
    QPushButton* const Label5;    // the maker's site
    QPushButton* const cmdOK;
};

}  // namespace vellum

// The Settings dialog: eight panels behind a row of tabs, and the purge of all preferences.
#pragma once

#include "shell/settings_fields.h"
#include "widgets/color_swatch.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableWidget>

#include <array>

class QLayout;

namespace vellum {

class frmSettings : public QDialog {
    Q_OBJECT
public:
    static constexpr int panelCount = 8;

    frmSettings(Workbench& workbench, SettingsTarget& target, QWidget* parent = nullptr);

    QTabBar* const TabStrip1 = Named<QTabBar>("TabStrip1");
    const std::array<QWidget*, panelCount> picOption = NamedArray<QWidget, panelCount>("picOption");
    QCheckBox* const chkPurge = Named<QCheckBox>("chkPurge");
    QPushButton* const cmdOK = Named<QPushButton>("cmdOK");
    QPushButton* const cmdCancel = Named<QPushButton>("cmdCancel");

    // Editor Settings
    QComboBox* const Combo1 = Named<QComboBox>("Combo1");
    QComboBox* const Combo2 = Named<QComboBox>("Combo2");
    ColorSwatch* const lblForeColor = Named<ColorSwatch>("lblForeColor");
    ColorSwatch* const lblBackColor = Named<ColorSwatch>("lblBackColor");
    QCheckBox* const chkWrap = Named<QCheckBox>("chkWrap");
    QCheckBox* const chkAutoTab = Named<QCheckBox>("chkAutoTab");
    QCheckBox* const chkPop = Named<QCheckBox>("chkPop");

    // SmartColor
    QCheckBox* const chkOnOff = Named<QCheckBox>("chkOnOff");
    const std::array<ColorSwatch*, tagColorCount> picColor = NamedArray<ColorSwatch, tagColorCount>("picColor");
    const std::array<QPushButton*, tagColorCount> cmdColor = NamedArray<QPushButton, tagColorCount>("cmdColor");
    QCheckBox* const chkASPBold = Named<QCheckBox>("chkASPBold");

    // File Types
    QListWidget* const lstDocuments = Named<QListWidget>("lstDocuments");
    QLineEdit* const txtDocuments = Named<QLineEdit>("txtDocuments");
    QPushButton* const cmdAddDocument = Named<QPushButton>("cmdAddDocument");
    QPushButton* const lstDocsRemove = Named<QPushButton>("lstDocsRemove");
    QListWidget* const List1 = Named<QListWidget>("List1");
    QLineEdit* const Text2 = Named<QLineEdit>("Text2");
    QPushButton* const Command9 = Named<QPushButton>("Command9");
    QPushButton* const Command10 = Named<QPushButton>("Command10");

    // Customizations
    QTableWidget* const Grid1 = Named<QTableWidget>("Grid1");
    QLineEdit* const Text3 = Named<QLineEdit>("Text3");
    QListWidget* const List2 = Named<QListWidget>("List2");
    QLineEdit* const Text4 = Named<QLineEdit>("Text4");
    QPushButton* const Command11 = Named<QPushButton>("Command11");
    QPushButton* const Command12 = Named<QPushButton>("Command12");

    // FTP
    QLineEdit* const Text5 = Named<QLineEdit>("Text5");
    QLineEdit* const Text6 = Named<QLineEdit>("Text6");
    QLineEdit* const Text7 = Named<QLineEdit>("Text7");

    // XML Helpers
    QCheckBox* const chkXMLCase = Named<QCheckBox>("chkXMLCase");
    QCheckBox* const chkXMLQuotes = Named<QCheckBox>("chkXMLQuotes");
    QCheckBox* const chkXMLSlash = Named<QCheckBox>("chkXMLSlash");

    // Document Type Definitions
    const std::array<QRadioButton*, 3> optXHTML = NamedArray<QRadioButton, 3>("optXHTML");
    QCheckBox* const chkMath = Named<QCheckBox>("chkMath");
    QCheckBox* const chkSmil = Named<QCheckBox>("chkSmil");
    QCheckBox* const chkSVG = Named<QCheckBox>("chkSVG");
    QCheckBox* const chkOpenBook = Named<QCheckBox>("chkOpenBook");
    QCheckBox* const chkWML = Named<QCheckBox>("chkWML");
    QCheckBox* const chkX3D = Named<QCheckBox>("chkX3D");

    // Preview Settings
    const std::array<QLineEdit*, externalBrowserCount> txtBrowser =
        NamedArray<QLineEdit, externalBrowserCount>("txtBrowser");
    const std::array<QPushButton*, externalBrowserCount> cmbBrowser =
        NamedArray<QPushButton, externalBrowserCount>("cmbBrowser");
    QLineEdit* const txtRate = Named<QLineEdit>("txtRate");
    QRadioButton* const OptVertical = Named<QRadioButton>("OptVertical");
    QRadioButton* const optHorizontal = Named<QRadioButton>("optHorizontal");
    QLineEdit* const txtPercent = Named<QLineEdit>("txtPercent");

    // What the dialog shows, as plain values.
    [[nodiscard]] SettingsFields Fields() const;

    // OK: purges when that is checked; otherwise saves and closes, or names the field that can't be taken and stays.
    void accept() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    template <typename Widget>
    static Widget* Named(const QString& name) {
        auto* widget = new Widget;
        widget->setObjectName(name);
        return widget;
    }

    template <typename Widget, int count>
    static std::array<Widget*, count> NamedArray(const QString& name) {
        std::array<Widget*, count> widgets{};
        for (int i = 0; i < count; ++i) widgets[i] = Named<Widget>(QStringLiteral("%1(%2)").arg(name).arg(i));
        return widgets;
    }

    // Layouts of the panels, in the order of the tabs.
    void BuildEditorPanel();
    void BuildColorPanel();
    void BuildFileTypesPanel();
    void BuildCustomPanel();
    void BuildFtpPanel();
    void BuildXmlPanel();
    void BuildDefinitionsPanel();
    void BuildPreviewPanel();
    [[nodiscard]] QLayout* BuildCustomList();
    void BuildFrame();

    void Wire();
    void WireList(QListWidget* list, QLineEdit* line, QPushButton* add, QPushButton* remove);
    void Show(const SettingsFields& fields);
    void ShowCell();
    void WriteCell();
    void ChooseColor(ColorSwatch* swatch);
    void ChooseBrowser(int index);
    void StepTab(int step);

    Workbench& workbench_;
    SettingsTarget& target_;
    QStackedWidget* const panels_ = Named<QStackedWidget>("panels");
};

}  // namespace vellum

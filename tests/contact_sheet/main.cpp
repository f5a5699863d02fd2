// Takes pictures of all forms in light and dark, with the usual and with doubled letters, and lays them out on four
// sheets: contact_sheet <folder>
#include "tests/contact_sheet/forms.h"
#include "tests/contact_sheet/sheet.h"
#include "tests/support/test_home.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QListView>
#include <QStyleFactory>
#include <QTabBar>
#include <QTest>
#include <QTextStream>
#include <QTimer>

namespace vellum::contact_sheet {
namespace {

constexpr int sheetWidth = 2760;

QPalette Palette(bool dark) {
    const QColor window = dark ? QColor(0x2a, 0x2e, 0x32) : QColor(0xf0, 0xf0, 0xf0);
    const QColor base = dark ? QColor(0x1b, 0x1e, 0x20) : QColor(Qt::white);
    const QColor text = dark ? QColor(0xf0, 0xf0, 0xf0) : QColor(Qt::black);
    const QColor faint = dark ? QColor(0x80, 0x84, 0x88) : QColor(0x8c, 0x8c, 0x8c);
    QPalette colors(dark ? QColor(0x31, 0x36, 0x3b) : window, window);  // the shades of the frames follow from these
    colors.setColor(QPalette::Base, base);
    colors.setColor(QPalette::AlternateBase, window);
    colors.setColor(QPalette::ToolTipBase, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        colors.setColor(role, text);
        colors.setColor(QPalette::Disabled, role, faint);
    }
    colors.setColor(QPalette::PlaceholderText, faint);
    colors.setColor(QPalette::Highlight, dark ? QColor(0x3d, 0x8e, 0xc9) : QColor(0x30, 0x8c, 0xc6));
    colors.setColor(QPalette::HighlightedText, Qt::white);
    colors.setColor(QPalette::Link, dark ? QColor(0x5d, 0xb3, 0xf0) : QColor(0x00, 0x50, 0xb0));
    return colors;
}

void Settle() {
    constexpr int rounds = 5;
    for (int i = 0; i < rounds; ++i) QApplication::processEvents();
}

QImage Grab(QWidget& widget) {
    Settle();
    return widget.grab().toImage();
}

// One picture, or one of each tab.
void TakeForm(const QString& name, QWidget& form, std::vector<Shot>& shots) {
    form.show();
    form.activateWindow();
    auto* tabs = form.findChild<QTabBar*>();
    if (!tabs) {
        shots.push_back({name, Grab(form)});
        return;
    }
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        QString caption = tabs->tabText(i);
        shots.push_back({name + ": " + caption.remove(u'&'), Grab(form)});
    }
}

// A box runs a loop of its own, in which a timer takes the picture and closes it.
void TakeBox(const Box& box, std::vector<Shot>& shots) {
    QTimer camera;
    QObject::connect(&camera, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        shots.push_back({box.name, dialog->grab().toImage()});
        dialog->reject();
    });
    camera.start(20);
    box.open();
}

void TakeMainWindow(Stage& stage, std::vector<Shot>& shots) {
    const auto window = MakeMainWindow(stage);
    const auto& files = *window->findChild<QListView*>("File2");
    if (!QTest::qWaitFor([&files] { return files.model()->rowCount() > 0; })) qWarning("the website stays empty");
    shots.push_back({"MDIform1", Grab(*window)});
}

std::vector<Shot> TakeAll() {
    std::vector<Shot> shots;
    Stage stage;
    for (const Form& form : Forms()) {
        const auto widget = form.make(stage);
        TakeForm(form.name, *widget, shots);
    }
    for (const Box& box : Boxes()) TakeBox(box, shots);
    TakeMainWindow(stage, shots);
    return shots;
}

bool MakeSheets(const QDir& folder) {
    const QFont font = QApplication::font();
    for (const int percent : {100, 200}) {
        QFont scaled = font;
        scaled.setPointSizeF(font.pointSizeF() * percent / 100);
        QApplication::setFont(scaled);
        for (const bool dark : {false, true}) {
            QApplication::setPalette(Palette(dark));
            const QString path =
                folder.filePath(QStringLiteral("contact-sheet-%1-%2.png").arg(dark ? "dark" : "light").arg(percent));
            if (!MakeSheet(TakeAll(), sheetWidth * percent / 100).save(path)) return false;
            QTextStream(stdout) << path << Qt::endl;
        }
    }
    return true;
}

}  // namespace
}  // namespace vellum::contact_sheet

int main(int argc, char** argv) {
    const vellum::test::TestHome home;
    QApplication application(argc, argv);
    QApplication::setApplicationName("vellumcraft-contact-sheet");
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    if (argc != 2) {
        QTextStream(stderr) << "usage: contact_sheet <folder>" << Qt::endl;
        return 2;
    }
    return vellum::contact_sheet::MakeSheets(QDir(QString::fromLocal8Bit(argv[1]))) ? 0 : 1;
}

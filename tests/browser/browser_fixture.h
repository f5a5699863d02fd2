// A browser surface in a window, with a folder for its pages and a stand-in for the system's browser.
#pragma once

#include "browser/browser_engine.h"
#include "browser/browser_surface.h"
#include "tests/support/page_of.h"
#include "tests/support/wait_for.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <array>
#include <gtest/gtest.h>

namespace vellum::test {

// Takes the place of the system's browser.
class OpenedAddresses : public QObject {
    Q_OBJECT
public:
    OpenedAddresses() {
        for (const char* scheme : schemes) QDesktopServices::setUrlHandler(scheme, this, "Open");
    }
    ~OpenedAddresses() override {
        for (const char* scheme : schemes) QDesktopServices::unsetUrlHandler(scheme);
    }
    Q_INVOKABLE void Open(const QUrl& address) { addresses << address.toString(); }

    QStringList addresses;

private:
    static constexpr std::array schemes{"http", "https", "mailto", "ftp", "tel", "news", "file"};
};

class BrowserFixture : public testing::Test {
protected:
    static void SetUpTestSuite() { PrepareBrowserEngine(); }

    void SetUp() override {
        ASSERT_TRUE(directory_.isValid());
        auto* const layout = new QVBoxLayout(&window_);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&line_);
        layout->addWidget(&surface_, 1);
        window_.resize(400, 330);
        window_.show();
        window_.activateWindow();
        line_.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }

    QString Write(const QString& name, const QByteArray& bytes) const {
        const QString path = directory_.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return path;
    }

    static QByteArray Page(const QByteArray& title, const QByteArray& body, const QByteArray& head = {}) {
        return "<html><head><title>" + title + "</title>" + head + "</head><body style=\"margin:0\">" + body +
               "</body></html>";
    }

    void WritePicture(const QString& name, const QColor& color) const {
        QImage picture(20, 20, QImage::Format_RGB32);
        picture.fill(color);
        ASSERT_TRUE(picture.save(directory_.filePath(name)));
    }

    // Navigates and waits until the navigation has ended well.
    void Show(const QString& path) {
        QSignalSpy complete(&surface_, &BrowserSurface::NavigateComplete);
        surface_.Navigate(path);
        ASSERT_TRUE(WaitFor([&] { return !complete.isEmpty(); }));
        ASSERT_TRUE(complete.last().first().toBool());
    }

    qint64 RendererProcess() const { return PageOf(surface_)->renderProcessPid(); }

    QColor Pixel(int x, int y) { return surface_.grab().toImage().pixelColor(x, y); }

    bool WaitForPixel(int x, int y, const QColor& color) {
        return WaitFor([&] { return Pixel(x, y) == color; });
    }

    bool CurtainDown() const { return surface_.findChild<QWidget*>("curtain")->isVisible(); }

    bool WaitForTitle(const QString& title) {
        return WaitFor([&] { return surface_.Title() == title; });
    }

    // A click of a person into the page, in pixels from its top left corner.
    void Click(int x, int y) {
        QWidget* const target = surface_.childAt(x, y);
        ASSERT_NE(target, nullptr);
        QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier, target->mapFrom(&surface_, QPoint(x, y)));
    }

    // True when this thread goes on with its work, whatever the page does.
    static bool ProgramGoesOn() {
        int ticks = 0;
        QTimer ticker;
        QObject::connect(&ticker, &QTimer::timeout, [&] { ++ticks; });
        ticker.start(10);
        return WaitFor([&] { return ticks == 20; });
    }

    QTemporaryDir directory_;
    QWidget window_;
    QLineEdit line_;
    BrowserSurface surface_;
    OpenedAddresses opened_;
};

}  // namespace vellum::test

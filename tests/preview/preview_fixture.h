// Document windows with a preview, in a session of their own.
#pragma once

#include "browser/browser_engine.h"
#include "browser/browser_surface.h"
#include "preview/generated_page.h"
#include "preview/preview_pipeline.h"
#include "settings/settings_keys.h"
#include "tests/support/test_workbench.h"
#include "tests/support/wait_for.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <csignal>
#include <gtest/gtest.h>

namespace vellum::test {

inline QByteArray Read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

inline void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

class PreviewedDocument : public Document, public PreviewHost {
public:
    explicit PreviewedDocument(Workbench& workbench)
        : Document(workbench), browser(this), autoPreview(this), pipeline(workbench, *this, browser, autoPreview) {
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(Text1);
        layout->addWidget(&browser);
        resize(500, 500);
        autoPreview.setChecked(true);
        Timer().setInterval(3600 * 1000);  // tests give the ticks
    }

    void ResizeMe() override {}
    PreviewPipeline& Pipeline() override { return pipeline; }
    QTimer& Timer() const { return *findChild<QTimer*>("Timer2", Qt::FindDirectChildrenOnly); }

    BrowserSurface browser;
    QCheckBox autoPreview;
    PreviewPipeline pipeline;
};

class PreviewBench : public TestWorkbench {
public:
    explicit PreviewBench(const QString& directory) {
        website = directory + "/site";
        count = 0;
        QDir().mkpath(website);
    }

    Document* ActiveDocument() const override { return active.get(); }
    QWidget* Window() override { return active.get(); }
    QList<Document*> Documents() const override { return TestWorkbench::Documents() + others; }
    Document* NewForm() override {
        ++count;
        if (usePreview) {
            active = std::make_unique<PreviewedDocument>(*this);
        } else {
            active = std::make_unique<PlainDocument>(*this);
        }
        active->show();
        return active.get();
    }

    std::unique_ptr<Document> active;
    QList<Document*> others;
};

// A shown document with a preview, and browsers outside that note what they are given.
class PreviewFixture : public testing::Test {
protected:
    static void SetUpTestSuite() { PrepareBrowserEngine(); }

    void SetUp() override {
        ASSERT_TRUE(directory_.isValid());
        document_ = static_cast<PreviewedDocument*>(bench_.NewForm());
        document_->SetCaption("New 1");
        document_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(document_));
    }

    bool WaitForTitle(const QString& title) {
        return WaitFor([&] { return document_->browser.Title() == title; });
    }

    QString Site(const QString& name) const { return bench_.website + '/' + name; }

    // An external browser that writes its arguments, one a line, into a file.
    QString FakeBrowser() {
        const QString script = directory_.filePath("browser.sh");
        WriteFile(script, "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done > '" + Arguments().toUtf8() +
                              ".new'\nmv '" + Arguments().toUtf8() + ".new' '" + Arguments().toUtf8() + "'\n");
        QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return script;
    }

    // A default handler, first on the search path, that notes its process and its arguments and ends with `code`.
    void FakeDefaultHandler(int code) {
        const QString folder = directory_.filePath("bin");
        QDir().mkpath(folder);
        const QString script = folder + "/xdg-open";
        const QByteArray target = Arguments().toUtf8();
        QFile::remove(script);
        WriteFile(script, "#!/bin/sh\necho $$ > '" + target + ".pid'\nfor a in \"$@\"; do echo \"$a\"; done > '" +
                              target + "'\nexit " + QByteArray::number(code) + "\n");
        QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        if (!searchPath_) searchPath_ = qgetenv("PATH");
        qputenv("PATH", folder.toUtf8() + ':' + *searchPath_);
    }

    // What the handler was given, once it has ended.
    QByteArray GivenToDefaultHandler() {
        const bool ended = WaitFor([&] {
            const int process = Read(Arguments() + ".pid").trimmed().toInt();
            return process > 0 && ::kill(process, 0) != 0;
        });
        const QByteArray given = ended ? Read(Arguments()) : QByteArray("(still runs)");
        QFile::remove(Arguments());
        QFile::remove(Arguments() + ".pid");
        return given;
    }

    void TearDown() override {
        if (searchPath_) qputenv("PATH", *searchPath_);
    }

    QString Arguments() const { return directory_.filePath("arguments"); }

    QTemporaryDir directory_;
    PreviewBench bench_{directory_.path()};
    PreviewedDocument* document_ = nullptr;

private:
    std::optional<QByteArray> searchPath_;
};

}  // namespace vellum::test

#include "shell/recovery_keeper.h"

#include "editor/workbench.h"
#include "files/file_names.h"
#include "shell/open_documents.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>
#include <QTimer>

namespace vellum {
namespace {

// Milliseconds. A copy is made in the first pause of the typing, so that no key waits for it; who types without a pause
// is copied all the same, now and then.
constexpr int pauseBeforeCopy = 800;
constexpr int longestWithoutCopy = 10000;
constexpr int mostListed = 12;

// "New 3"; a file may be called Newsletter.htm.
bool IsBlankCaption(const QString& caption) {
    static const QRegularExpression blank(QRegularExpression::anchoredPattern("New( [0-9]+)?"));
    return blank.match(caption).hasMatch();
}

// The next start may run in another directory.
QString CaptionToKeep(const QString& caption) {
    return IsBlankCaption(caption) ? caption : AbsolutePath(caption);
}

RecoveredText CopyOf(const DocumentWindow& window) {
    return {CaptionToKeep(window.Caption()), window.Text1->RawText(), window.File().Format(),
            QDateTime::currentSecsSinceEpoch()};
}

}  // namespace

QString RecoveryQuestion(const std::vector<RecoveredText>& lost) {
    QString text =
        RecoveryKeeper::tr("Vellumcraft did not end normally. These unsaved documents can be recovered:") + "\n\n";
    int listed = 0;
    for (const RecoveredText& copy : lost) {
        if (++listed > mostListed) break;
        const QDateTime written = QDateTime::fromSecsSinceEpoch(copy.writtenAt);
        text += RecoveryKeeper::tr("%1   (%2)")
                    .arg(ReadableName(copy.caption), QLocale().toString(written, QLocale::ShortFormat)) +
                "\n";
    }
    const int more = static_cast<int>(lost.size()) - mostListed;
    if (more > 0) text += RecoveryKeeper::tr("and %1 more").arg(more) + "\n";
    return text + "\n" + RecoveryKeeper::tr("Open them now? No discards them.");
}

RecoveryKeeper::RecoveryKeeper(RecoveryStore& store, QObject* parent) : QObject(parent), store_(store) {}

void RecoveryKeeper::Watch(DocumentWindow& window) {
    const int document = nextDocument_++;
    watched_.insert(document, &window);
    connect(&window, &QObject::destroyed, this, [this, document] { watched_.remove(document); });
    auto* pause = new QTimer(&window);
    pause->setSingleShot(true);
    pause->setInterval(pauseBeforeCopy);
    auto* limit = new QTimer(&window);
    limit->setSingleShot(true);
    limit->setInterval(longestWithoutCopy);
    connect(window.Text1, &EditSurface::Changed, this, [pause, limit] {
        pause->start();
        if (!limit->isActive()) limit->start();
    });
    for (const QTimer* timer : {pause, limit}) {
        connect(timer, &QTimer::timeout, this, [this, &window, document, pause, limit] {
            pause->stop();
            limit->stop();
            if (!window.Saver()) store_.Keep(document, CopyOf(window));
        });
    }
    connect(&window, &Document::SaverChanged, this, [this, document](bool saver) {
        if (saver) store_.Forget(document);
    });
    connect(&window, &DocumentWindow::Closing, this, [this, &window, document, pause, limit](bool saved) {
        pause->stop();
        limit->stop();
        watched_.remove(document);
        if (saved) {
            store_.Forget(document);
        } else {
            store_.Keep(document, CopyOf(window));
            store_.LeaveBehind(document);
        }
    });
}

void RecoveryKeeper::KeepAll() {
    for (auto entry = watched_.cbegin(); entry != watched_.cend(); ++entry) {
        if (!entry.value()->Saver()) store_.Keep(entry.key(), CopyOf(*entry.value()));
    }
}

void RecoveryKeeper::OfferLost(Workbench& workbench, OpenDocuments& documents) {
    const std::vector<RecoveredText> lost = store_.FindLost();
    if (lost.empty()) return;
    const Answer answer =
        workbench.Ask().AskYesNoCancel(workbench.Window(), RecoveryQuestion(lost), tr("Recover unsaved documents"));
    if (answer == Answer::Cancel) return;
    if (answer == Answer::Yes) {
        for (const RecoveredText& copy : lost) {
            documents.Open({.path = IsBlankCaption(copy.caption) ? QString() : copy.caption, .recovered = &copy});
        }
        KeepAll();
        // The old copies go only when this session has its own.
        if (!store_.Flush()) return;
    }
    store_.DiscardFound();
}

}  // namespace vellum

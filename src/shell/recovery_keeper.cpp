#include "shell/recovery_keeper.h"

#include "editor/workbench.h"
#include "files/file_names.h"
#include "shell/open_documents.h"
#include "widgets/prompts.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>
#include <QTimer>

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

namespace vellum {
namespace {

constexpr int retryAfter = 10000;  // milliseconds
constexpr std::size_t mostListed = 12;

// "New 3"; a file may be called Newsletter.htm.
bool IsBlankCaption(const QString& caption) {
    static const QRegularExpression blank(QRegularExpression::anchoredPattern("New( [0-9]+)?"));
    return blank.match(caption).hasMatch();
}

// The next start may run in another directory.
QString CaptionToKeep(const QString& caption) {
    return IsBlankCaption(caption) ? caption : AbsolutePath(caption);
}

QString Beginning(const std::vector<RecoveredText>& lost) {
    const SessionEnd end = lost.front().end;
    const bool isSame = std::ranges::all_of(lost, [end](const RecoveredText& text) { return text.end == end; });
    if (!isSame) return RecoveryKeeper::tr("These documents were not saved:");
    switch (end) {
        case SessionEnd::Closed:
            return RecoveryKeeper::tr("These documents could not be saved when they were closed:");
        case SessionEnd::Terminated:
            return RecoveryKeeper::tr("Vellumcraft was told to end before these documents were saved:");
        case SessionEnd::Desktop:
            return RecoveryKeeper::tr("The desktop's session ended before these documents were saved:");
        case SessionEnd::Unknown:
            break;
    }
    return RecoveryKeeper::tr("Vellumcraft did not end normally. These documents were not saved:");
}

QString LineOf(const RecoveredText& lost) {
    const QDateTime written = QDateTime::fromSecsSinceEpoch(lost.writtenAt);
    QString line = RecoveryKeeper::tr("%1   (%2)")
                       .arg(ReadableName(lost.caption), QLocale().toString(written, QLocale::ShortFormat)) +
                   "\n";
    const QString indent(4, u' ');
    if (HasFileChanged(lost)) line += indent + RecoveryKeeper::tr("The file has been changed since.") + "\n";
    if (lost.incomplete) line += indent + RecoveryKeeper::tr("The last edits are lost.") + "\n";
    return line;
}

}  // namespace

QString RecoveryQuestion(const std::vector<RecoveredText>& lost) {
    QString text = Beginning(lost) + "\n\n";
    const std::size_t listed = std::min(lost.size(), mostListed);
    for (const RecoveredText& copy : std::span(lost).first(listed)) text += LineOf(copy);
    const std::size_t more = lost.size() - listed;
    if (more > 0) text += RecoveryKeeper::tr("and %1 more").arg(more) + "\n";
    return text + "\n" +
           RecoveryKeeper::tr(
               "Recover opens them as documents that are not saved yet, Discard deletes what was kept of "
               "them, Later asks again at the next start.");
}

struct RecoveryKeeper::Watched {
    explicit Watched(DocumentWindow& document) : window(document), settled(document.Text1->RawText()) {}

    [[nodiscard]] RecoveredText Copy(const QString& text, const std::vector<OtherLineEnd>& lineEnds) const {
        return {.caption = CaptionToKeep(window.Caption()),
                .text = text,
                .format = window.File().Format(),
                .fileTime = fileTime,
                .otherLineEnds = lineEnds};
    }
    [[nodiscard]] RecoveredText Copy(const QString& text) const { return Copy(text, OtherLineEnds()); }
    [[nodiscard]] std::vector<OtherLineEnd> OtherLineEnds() const {
        return window.Text1->OtherLineEnds(window.File().Format().lineEnd);
    }

    DocumentWindow& window;
    QString settled;  // the text that the next edit changes; empty while the store follows
    std::vector<OtherLineEnd> settledLineEnds;
    qint64 fileTime = 0;                // of the file when it held that text
    qsizetype length = settled.size();  // of the text as it was told to the store
    bool follows = false;
    QTimer retry;
};

RecoveryKeeper::RecoveryKeeper(RecoveryStore& store, Workbench& workbench) : store_(store), workbench_(workbench) {
    connect(&store, &RecoveryStore::NotKept, this, &RecoveryKeeper::TellNotKept);
    connect(&store, &RecoveryStore::WholeWanted, this, [this](int document) {
        const auto watched = watched_.value(document);
        if (watched && watched->follows && !watched->retry.isActive()) KeepWhole(document);
    });
}

RecoveryKeeper::~RecoveryKeeper() = default;

void RecoveryKeeper::Watch(DocumentWindow& window) {
    const int document = nextDocument_++;
    const auto watched = std::make_shared<Watched>(window);
    watched_.insert(document, watched);
    watched->retry.setParent(this);
    watched->retry.setSingleShot(true);
    watched->retry.setInterval(retryAfter);
    connect(&watched->retry, &QTimer::timeout, this, [this, document] { KeepWhole(document); });
    connect(&window, &QObject::destroyed, this, [this, document] { watched_.remove(document); });
    connect(window.Text1, &EditSurface::Replaced, this,
            [this, document](int position, int removed, const QString& text) {
                Follow(document, position, removed, text);
            });
    connect(window.Text1, &EditSurface::LineEndsRestored, this, [this, document] { KeepWhole(document); });
    connect(&window, &Document::SaverChanged, this,
            [this, document](bool saver) { saver ? Settle(document) : Begin(document); });
    connect(&window, &DocumentWindow::Closing, this, [this, document](bool saved) { Close(document, saved); });
}

void RecoveryKeeper::Begin(int document) {
    const auto watched = watched_.value(document);
    if (!watched || watched->follows) return;
    watched->fileTime = watched->window.File().Known().stamp.modified;
    store_.Keep(document, watched->Copy(watched->settled, watched->settledLineEnds));
    watched->settled.clear();
    watched->settledLineEnds.clear();
    watched->follows = true;
}

void RecoveryKeeper::Follow(int document, int position, int removed, const QString& text) {
    const auto watched = watched_.value(document);
    if (!watched) return;
    Begin(document);
    const EditSurface& surface = *watched->window.Text1;
    watched->length += text.size() - removed;
    if (text.size() == surface.RawLength()) {
        store_.Keep(document, watched->Copy(text));  // it is everything now
    } else if (watched->length != surface.RawLength()) {
        store_.Keep(document, watched->Copy(surface.RawText()));  // something went on unseen
    } else {
        store_.Change(document, {.position = position, .removed = removed, .text = text});
    }
    watched->length = surface.RawLength();
}

void RecoveryKeeper::KeepWhole(int document) {
    const auto watched = watched_.value(document);
    if (!watched || watched->window.Saver()) return;
    const QString text = watched->window.Text1->RawText();
    store_.Keep(document, watched->Copy(text));
    watched->length = text.size();
}

void RecoveryKeeper::Settle(int document) {
    const auto watched = watched_.value(document);
    if (!watched) return;
    store_.Forget(document);
    watched->settled = watched->window.Text1->RawText();
    watched->settledLineEnds = watched->OtherLineEnds();
    watched->length = watched->settled.size();
    watched->follows = false;
    watched->retry.stop();
}

void RecoveryKeeper::Close(int document, bool saved) {
    const auto watched = watched_.take(document);
    if (!watched) return;
    if (saved) {
        store_.Forget(document);
    } else {
        store_.Keep(document, watched->Copy(watched->window.Text1->RawText()));
        store_.LeaveBehind(document);
    }
}

void RecoveryKeeper::TellNotKept(int document, const QString& reason) {
    if (const auto watched = watched_.value(document); watched && watched->follows) watched->retry.start();
    if (std::exchange(toldNotKept_, true)) return;
    workbench_.Ask().Message(workbench_.Window(),
                             tr("What you type can't be kept for recovery until it is saved:") + "\n\n" + reason);
}

void RecoveryKeeper::OfferLost(OpenDocuments& documents) {
    enum { recover, discard, later };
    const std::vector<RecoveredText> lost = store_.FindLost();
    if (!store_.PutAside().isEmpty()) {
        workbench_.Ask().Message(workbench_.Window(),
                                 tr("Some texts that were not saved can't be recovered. What was kept of them is "
                                    "damaged, and has been put aside:") +
                                     "\n\n" + store_.PutAside().join('\n'));
    }
    if (lost.empty()) return;
    const int choice =
        workbench_.Ask().Choose(workbench_.Window(), RecoveryQuestion(lost), tr("Recover unsaved documents"),
                                {tr("Recover"), tr("Discard"), tr("Later")}, recover, later);
    if (choice == later) return;
    if (choice == recover) {
        for (const RecoveredText& copy : lost) Open(copy, documents);
        // The old copies go only when this session has its own.
        if (!store_.Flush()) return;
    }
    store_.DiscardFound();
}

void RecoveryKeeper::Open(const RecoveredText& lost, OpenDocuments& documents) {
    const DocumentWindow* const window =
        documents.Open({.path = IsBlankCaption(lost.caption) ? QString() : lost.caption, .recovered = &lost});
    for (auto entry = watched_.cbegin(); entry != watched_.cend(); ++entry) {
        if (&entry.value()->window != window) continue;
        entry.value()->fileTime = lost.fileTime;
        KeepWhole(entry.key());
    }
}

}  // namespace vellum

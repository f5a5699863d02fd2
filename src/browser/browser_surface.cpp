#include "browser/browser_surface.h"

#include "browser/browser_engine.h"
#include "browser/browser_page.h"
#include "files/file_names.h"

#include <QAction>
#include <QApplication>
#include <QChildEvent>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QQuickWidget>
#include <QQuickWindow>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <chrono>
#include <utility>

namespace vellum {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 2000ms;      // with a page that doesn't answer
constexpr auto leastPatience = 250ms;  // with one that has been loading for a while
constexpr auto curtainLimit = 1000ms;
constexpr auto settleTime = 60ms;  // from the end of loading until a page is laid out
constexpr auto frameTime = 120ms;  // a page without movement paints no frame by itself

// Where the graphics device paints pages, the toolkit makes a window anew when its first page appears, and the window
// flashes. An empty widget of the same kind, put in from the start, prevents that.
void MakeWindowReady(QWidget* surface) {
    if (qEnvironmentVariable("QT_QUICK_BACKEND") == QLatin1String("software")) return;
    if (QQuickWindow::graphicsApi() == QSGRendererInterface::Software) return;
    auto* const seed = new QQuickWidget(surface);
    seed->resize(0, 0);
    seed->hide();
}

PageKind KindOf(const QUrl& address) {
    return address.isLocalFile() ? PageKind::Local : PageKind::Web;
}

QUrl AddressOf(const QString& path) {
    if (path.startsWith(QLatin1String("http://")) || path.startsWith(QLatin1String("https://"))) return QUrl(path);
    // Byte for byte, because the name of a file need not be text.
    const QByteArray name = EncodeFileName(AbsolutePath(path)).toPercentEncoding("/!$&'()*+,;=:@");
    return QUrl::fromEncoded("file://" + name, QUrl::StrictMode);
}

}  // namespace

struct BrowserSurface::Private {
    explicit Private(BrowserSurface* owner) : surface(owner) {}

    BrowserSurface* surface;
    QWebEngineView* view = nullptr;
    BrowserPage* page = nullptr;
    QLabel* curtain = nullptr;  // the last picture of the old page, until the new one is painted
    QLabel* note = nullptr;     // what the page's scripts say in message boxes, or why there is no page

    QString path;
    QUrl wanted;
    bool used = false;  // the page has been sent somewhere
    bool loading = false;
    bool stopping = false;  // the former load was told to stop; that of `wanted` begins when it has
    bool arrived = false;   // the page that was ordered has come, though perhaps not whole
    bool retried = false;   // it was ordered a second time
    bool asking = false;    // the page was asked for a sign of life and has not given it
    bool awaitsFrame = false;
    int question = 0;
    QElapsedTimer sinceLoad;
    QTimer impatience;
    QTimer arrivalTimer;
    QTimer curtainTimer;
    QTimer settleTimer;

    void StartEngine();
    void MakePage();
    void GiveUpPage();
    void AskForLife();
    void Answered(int number);
    void MissArrival();
    void Load();
    void DropCurtain();
    void RaiseCurtain();
    void LoadingChanged(const QWebEngineLoadingInfo& info);
    void Finished(bool ok);
    void Died();
    void ShowNote(const QString& text);
    void ShowMenu(QPoint position);
    void WatchChild(QObject* child);
};

void BrowserSurface::Private::StartEngine() {
    if (view != nullptr) return;
    view = new QWebEngineView(surface);
    view->setFocusPolicy(Qt::ClickFocus);
    view->setAcceptDrops(false);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    view->installEventFilter(surface);
    for (QObject* child : view->children()) WatchChild(child);
    static_cast<QVBoxLayout*>(surface->layout())->insertWidget(0, view, 1);
    QObject::connect(view, &QWidget::customContextMenuRequested, surface,
                     [this](QPoint position) { ShowMenu(position); });
    MakePage();
    curtain->raise();
}

void BrowserSurface::Private::MakePage() {
    page = new BrowserPage(KindOf(wanted), surface);
    used = loading = stopping = asking = false;
    QObject::connect(page, &QWebEnginePage::loadingChanged, surface,
                     [this](const QWebEngineLoadingInfo& info) { LoadingChanged(info); });
    QObject::connect(page, &BrowserPage::Arrived, surface, [this] { arrived = true; });
    QObject::connect(page, &BrowserPage::ScriptSpoke, surface, [this](const QString& text) { ShowNote(text); });
    QObject::connect(page, &BrowserPage::Died, surface, [this] { Died(); });
    QObject::connect(page, &BrowserPage::OutsideLink, surface,
                     [](const QUrl& address) { QDesktopServices::openUrl(address); });
    view->setPage(page);
}

void BrowserSurface::Private::GiveUpPage() {
    BrowserPage* const old = page;
    const qreal zoom = view->zoomFactor();
    QObject::disconnect(old, nullptr, surface, nullptr);
    ++question;
    impatience.stop();
    arrivalTimer.stop();
    old->Kill();
    MakePage();
    view->setZoomFactor(zoom);
    old->deleteLater();
}

void BrowserSurface::Private::AskForLife() {
    if (asking) return;
    asking = true;
    auto wait = std::chrono::milliseconds(patience);
    if (loading)
        wait =
            std::max(std::chrono::milliseconds(leastPatience), wait - std::chrono::milliseconds(sinceLoad.elapsed()));
    impatience.start(wait);
    const int number = ++question;
    const QPointer<BrowserSurface> guard(surface);
    page->runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld,
                        [this, guard, number](const QVariant&) {
                            if (guard != nullptr) Answered(number);
                        });
}

void BrowserSurface::Private::Answered(int number) {
    if (number != question || !asking || stopping) return;
    // The engine reports only one end when two loads overlap, and doesn't say of which.
    if (loading) {
        stopping = true;
        page->triggerAction(QWebEnginePage::Stop);
    } else {
        Load();
    }
}

// A page may begin to hang after its last sign of life. No other page can then start in its process. In a fresh one
// nothing holds up the first page, however long that takes.
void BrowserSurface::Private::MissArrival() {
    if (!loading || arrived) return;
    GiveUpPage();
    Load();
}

void BrowserSurface::Private::Load() {
    asking = stopping = false;
    impatience.stop();
    DropCurtain();
    note->hide();
    if (used && wanted.isLocalFile()) arrivalTimer.start(patience);
    used = loading = true;
    arrived = false;
    sinceLoad.start();
    page->Permit(wanted);
    page->load(wanted);
}

void BrowserSurface::Private::DropCurtain() {
    settleTimer.stop();
    awaitsFrame = false;
    curtainTimer.start(curtainLimit);
    if (curtain->isVisible() || !used || !surface->isVisible() || view->size().isEmpty()) return;
    curtain->setPixmap(view->grab());
    curtain->setGeometry(view->geometry());
    curtain->raise();
    curtain->show();
}

void BrowserSurface::Private::RaiseCurtain() {
    settleTimer.stop();
    curtainTimer.stop();
    awaitsFrame = false;
    curtain->hide();
    curtain->clear();
}

void BrowserSurface::Private::LoadingChanged(const QWebEngineLoadingInfo& info) {
    if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
        loading = true;
        return;
    }
    loading = false;
    if (stopping) return Load();
    if (info.status() == QWebEngineLoadingInfo::LoadStoppedStatus) {
        // A refused link stops as well. That ends no navigation, but may stop one that was just ordered.
        if (info.url() != wanted) return;
        if (!arrived && !std::exchange(retried, true)) return Load();
    }
    Finished(info.status() == QWebEngineLoadingInfo::LoadSucceededStatus);
}

void BrowserSurface::Private::Finished(bool ok) {
    arrivalTimer.stop();
    settleTimer.start(settleTime);
    emit surface->NavigateComplete(ok);
}

void BrowserSurface::Private::Died() {
    RaiseCurtain();
    if (asking) {
        GiveUpPage();
        Load();
    } else if (loading) {
        loading = false;
        emit surface->NavigateComplete(false);
    }
}

void BrowserSurface::Private::ShowNote(const QString& text) {
    constexpr int longest = 500;
    note->setText(text.left(longest));
    note->show();
}

void BrowserSurface::Private::ShowMenu(QPoint position) {
    auto* const menu = new QMenu(surface);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* const reload = menu->addAction(QStringLiteral("&Reload"));
    QObject::connect(reload, &QAction::triggered, surface, [this] { surface->Navigate(path); });
    for (const auto& [action, caption] :
         {std::pair{QWebEnginePage::Copy, "&Copy"}, {QWebEnginePage::SelectAll, "Select &All"}}) {
        QAction* const entry = menu->addAction(QLatin1String(caption));
        entry->setEnabled(action != QWebEnginePage::Copy || page->hasSelection());
        QObject::connect(entry, &QAction::triggered, page,
                         [where = page, what = action] { where->triggerAction(what); });
    }
    menu->popup(view->mapToGlobal(position));
}

// The engine puts widgets of its own into the view and replaces them now and then.
void BrowserSurface::Private::WatchChild(QObject* child) {
    child->installEventFilter(surface);
    auto* const widget = qobject_cast<QWidget*>(child);
    if (widget == nullptr) return;
    widget->setFocusPolicy(Qt::ClickFocus);
    widget->setAcceptDrops(false);
}

BrowserSurface::BrowserSurface(QWidget* parent) : QWidget(parent), d_(std::make_unique<Private>(this)) {
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    white.setColor(QPalette::WindowText, Qt::darkGray);
    setPalette(white);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::NoFocus);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    d_->note = new QLabel(this);
    d_->note->setObjectName(QStringLiteral("note"));
    d_->note->setTextFormat(Qt::PlainText);
    d_->note->setWordWrap(true);
    d_->note->setMargin(4);
    d_->note->setMinimumWidth(1);
    layout->addWidget(d_->note);
    d_->note->setVisible(!IsAvailable());
    d_->note->setText(EngineObstacle());

    d_->curtain = new QLabel(this);
    d_->curtain->setObjectName(QStringLiteral("curtain"));
    d_->curtain->setAutoFillBackground(true);
    d_->curtain->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    d_->curtain->setMinimumSize(0, 0);
    d_->curtain->setAttribute(Qt::WA_TransparentForMouseEvents);
    d_->curtain->hide();

    if (IsAvailable()) MakeWindowReady(this);

    for (QTimer* timer : {&d_->impatience, &d_->arrivalTimer, &d_->curtainTimer, &d_->settleTimer})
        timer->setSingleShot(true);
    connect(&d_->impatience, &QTimer::timeout, this, [this] {
        d_->DropCurtain();
        d_->GiveUpPage();
        d_->Load();
    });
    connect(&d_->arrivalTimer, &QTimer::timeout, this, [this] { d_->MissArrival(); });
    connect(&d_->curtainTimer, &QTimer::timeout, this, [this] { d_->RaiseCurtain(); });
    connect(&d_->settleTimer, &QTimer::timeout, this, [this] {
        d_->awaitsFrame = true;
        QTimer::singleShot(frameTime, this, [this] {
            if (d_->awaitsFrame) d_->RaiseCurtain();
        });
    });
}

BrowserSurface::~BrowserSurface() {
    if (d_->page == nullptr) return;
    disconnect(d_->page, nullptr, this, nullptr);
    ++d_->question;
    if (d_->loading) d_->page->Kill();  // a page that hangs would otherwise outlive its window
    delete d_->view;
    delete d_->page;
}

void BrowserSurface::Navigate(const QString& path) {
    d_->path = path;
    d_->wanted = AddressOf(path);
    d_->retried = false;
    if (!IsAvailable()) {
        QMetaObject::invokeMethod(
            this, [this] { emit NavigateComplete(false); }, Qt::QueuedConnection);
        return;
    }
    d_->StartEngine();
    if (d_->page->IsDead()) {
        d_->GiveUpPage();
    } else if (d_->page->Kind() != KindOf(d_->wanted)) {
        d_->DropCurtain();
        d_->GiveUpPage();
    }
    if (d_->used) {
        d_->AskForLife();
    } else {
        d_->Load();
    }
}

QString BrowserSurface::Path() const {
    return d_->path;
}

QString BrowserSurface::Title() const {
    if (d_->page == nullptr) return {};
    const QString title = d_->page->title();
    const QUrl address = d_->page->url();
    // The engine takes the address for the title of a page without one.
    return title == address.fileName() || title == address.toString() ? QString() : title;
}

int BrowserSurface::ScrollTop() const {
    if (d_->page == nullptr || d_->page->IsDead()) return 0;
    return qRound(d_->page->scrollPosition().y());
}

bool BrowserSurface::IsAvailable() const {
    return EngineObstacle().isEmpty();
}

bool BrowserSurface::HasKeyboard() const {
    const QWidget* const focus = QApplication::focusWidget();
    return focus != nullptr && (focus == this || isAncestorOf(focus));
}

bool BrowserSurface::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::ChildAdded:
            d_->WatchChild(static_cast<QChildEvent*>(event)->child());
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::KeyPress:
            if (d_->page != nullptr) d_->page->NotePerson();
            break;
        case QEvent::Paint:
            // The picture of this very event is not on the screen yet.
            if (d_->awaitsFrame)
                QMetaObject::invokeMethod(
                    this, [this] { d_->RaiseCurtain(); }, Qt::QueuedConnection);
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

void BrowserSurface::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (d_->view != nullptr) d_->curtain->setGeometry(d_->view->geometry());
}

}  // namespace vellum

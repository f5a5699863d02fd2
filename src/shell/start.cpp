#include "shell/start.h"

#include "settings/settings_keys.h"
#include "system/fonts.h"
#include "system/programs.h"
#include "values/units.h"
#include "widgets/icons.h"
#include "widgets/prompts.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace vellum {
namespace {

constexpr int formWidth = 460;  // pixels
constexpr int formHeight = 260;
constexpr int lastTick = 35;

QLabel* MakeLabel(QWidget* parent, const QString& name, const QString& text, int pointSize, const QColor& color,
                  const QRect& place) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    QFont font = label->font();
    font.setPointSizeF(pointSize);
    font.setBold(pointSize > 12);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, color);
    label->setPalette(palette);
    label->setGeometry(place);
    label->setAlignment(Qt::AlignCenter);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

}  // namespace

std::optional<SplashStroke> SplashStrokeAt(int tick, int width, int height) {
    if (tick < 5 || tick > 20) return std::nullopt;
    return SplashStroke{width / 2, height / 2, (tick - 4) * 80 * 10, (tick - 4) * 16 + 1};
}

QStringList PreparedFontNames(const SettingsStore& store, const QStringList& systemFonts) {
    const auto count = systemFonts.size();
    if (ReadNumberSetting(store, keys::fontsNumber) != static_cast<double>(count)) return systemFonts;
    QStringList stored;
    for (int i = 0; i < count; ++i) stored << ReadSetting(store, keys::fontsEntry, i);
    return stored;
}

Start::Start(SettingsStore& store, Prompts& prompts, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint),
      timAnimation(new QTimer(this)),
      Timer1(new QTimer(this)),
      Timer2(new QTimer(this)),
      List6(new QListWidget(this)),
      lblmessage(MakeLabel(this, "lblmessage", "Vellumcraft", 34, QColor("#7a3b12"), {0, 70, formWidth, 70})),
      Label1(MakeLabel(this, "Label1", tr("made by the Vellumcraft developers"), 10, QColor("#5a4632"),
                       {0, 140, formWidth, 26})),
      Label2(
          MakeLabel(this, "Label2", "Release 2", 10, QColor("#8a6d4b"), {formWidth - 110, formHeight - 34, 100, 24})),
      lblX(MakeLabel(this, "lblX", "X", 110, QColor("#f6ecd6"), {0, 0, formWidth, formHeight})),
      lblX2(MakeLabel(this, "lblX2", "X", 110, QColor("#7a3b12"), {6, 6, formWidth, formHeight})),
      store_(store),
      prompts_(prompts) {
    lblX->hide();
    lblX2->hide();
    lblX->raise();
    Label2->raise();
    List6->setObjectName("List6");
    List6->hide();

    setObjectName("Start");
    setWindowTitle("Vellumcraft");
    setAccessibleName(tr("Vellumcraft is starting"));
    setFixedSize(formWidth, formHeight);
    setFocusPolicy(Qt::StrongFocus);

    timAnimation->setObjectName("timAnimation");
    timAnimation->setInterval(50);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(500);
    Timer2->setObjectName("Timer2");
    Timer2->setInterval(100);
    connect(timAnimation, &QTimer::timeout, this, &Start::Animate);
    connect(Timer1, &QTimer::timeout, this, [this] {
        Prepare();
        Timer1->stop();
    });
    connect(Timer2, &QTimer::timeout, this, &Start::WatchAnimation);
    timAnimation->start();
}

void Start::Load() {
    ticks_ = 0;
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        move(screen->availableGeometry().center() - rect().center());
    }
    show();
    Timer1->start();
}

QStringList Start::FontNames() const {
    QStringList names;
    for (int i = 0; i < List6->count(); ++i) names << List6->item(i)->text();
    return names;
}

void Start::Animate() {
    if (const auto stroke = SplashStrokeAt(ticks_, TwipsFromPixels(width()), TwipsFromPixels(height()))) {
        lblmessage->hide();
        Label1->hide();
        lblX->show();
        lblX2->show();
        stroke_ = stroke;
        update();
    }
    if (ticks_ == lastTick) timAnimation->stop();
    ++ticks_;
}

void Start::Prepare() {
    List6->addItems(PreparedFontNames(store_, SystemFontNames()));
    AddEditVerbOnce();
    timAnimation->start();
    Timer2->start();
}

void Start::AddEditVerbOnce() {
    if (ReadSetting(store_, keys::regAdded) != QLatin1String("False")) return;
    if (AddEditVerb(QCoreApplication::applicationFilePath())) WriteSetting(store_, keys::regAdded, "True");
}

void Start::WatchAnimation() {
    if (timAnimation->isActive()) return;
    hide();
    Timer2->stop();
    if (const QString refusal = store_.Refusal(); !refusal.isEmpty()) prompts_.Message(nullptr, refusal);
    QString answer = ReadSetting(store_, keys::useIE);
    if (answer.isEmpty()) {
        const Answer reply =
            prompts_.AskYesNo(nullptr, "Is Internet Explorer 5.0 or higher installed on your system?", "Important");
        answer = reply == Answer::Yes ? "Yes" : "No";
        WriteSetting(store_, keys::useIE, answer);
    }
    if (answer == QLatin1String("Yes") || answer == QLatin1String("No")) emit Ready(answer == QLatin1String("Yes"));
}

void Start::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QLinearGradient vellum(0, 0, 0, height());
    vellum.setColorAt(0, QColor("#fbf5e6"));
    vellum.setColorAt(1, QColor("#ecdcb9"));
    painter.fillRect(rect(), vellum);
    if (!stroke_) {
        ThemeIcon("vellumcraft").paint(&painter, QRect(width() / 2 - 24, 22, 48, 48));
        painter.setPen(QColor("#c9b489"));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, stroke_->lineWidth));
    const double x = stroke_->centreX / double(twipsPerPixel);
    const double y = stroke_->centreY / double(twipsPerPixel);
    const double reach = stroke_->halfLength / double(twipsPerPixel);
    painter.drawLine(QPointF(x - reach, y + reach), QPointF(x + reach, y - reach));
    painter.drawLine(QPointF(x - reach, y - reach), QPointF(x + reach, y + reach));
}

void Start::mousePressEvent(QMouseEvent* /*event*/) {
    timAnimation->stop();
}

void Start::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Space) {
        timAnimation->stop();
    }
}

}  // namespace vellum

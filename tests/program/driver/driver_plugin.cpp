// Loaded into the program under test through the toolkit's generic plugins: it answers JSON lines on a local socket,
// and acts on the program with the same events that a person's keyboard and mouse send.
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QGenericPlugin>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPixmap>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWebEngineView>
#include <QWidget>

#include <functional>

namespace {

using Reply = std::function<void(const QJsonObject&)>;

QWidget* ActiveDocument() {
    const QWidgetList all = QApplication::topLevelWidgets();
    for (const QWidget* widget : all) {
        const auto* area = widget->findChild<QMdiArea*>();
        if (area && area->currentSubWindow()) return area->currentSubWindow()->widget();
    }
    return nullptr;
}

// "document" is the active document window; its own widgets go before those of others.
QWidget* FindWidget(const QString& name) {
    QWidget* document = ActiveDocument();
    if (name == "document") return document;
    if (document) {
        if (auto* own = document->findChild<QWidget*>(name)) return own;
    }
    QWidget* hidden = nullptr;
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget* widget : all) {
        if (widget->objectName() != name && widget->property("text").toString() != name) continue;
        if (widget->isVisible()) return widget;
        hidden = widget;
    }
    return hidden;
}

QAction* FindAction(const QString& name) {
    const QWidgetList all = QApplication::topLevelWidgets();
    for (const QWidget* widget : all) {
        if (auto* action = widget->findChild<QAction*>(name)) return action;
    }
    return nullptr;
}

// Events that may open a modal dialog run after the answer has gone out.
void Later(const std::function<void()>& act) {
    QTimer::singleShot(0, qApp, act);
}

void PageText(const QString& name, const Reply& reply) {
    const QWidget* surface = FindWidget(name);
    const auto* view = surface ? surface->findChild<QWebEngineView*>() : nullptr;
    if (!view) {
        reply({{"value", QString()}});
        return;
    }
    view->page()->toPlainText([reply](const QString& text) { reply({{"value", text}}); });
}

// What a session manager tells when its session ends. Only the toolkit can make the object that comes along, and the
// program doesn't look at it.
void EndSession() {
    void* manager = nullptr;
    QMetaObject::invokeMethod(qApp, "commitDataRequest", Qt::DirectConnection,
                              QGenericArgument("QSessionManager&", &manager));
    QCoreApplication::quit();
}

QJsonObject Act(const QString& verb, const QString& target, const QString& value) {
    if (verb == "dialog") {
        const QWidget* dialog = QApplication::activeModalWidget();
        return {{"value", dialog ? dialog->property("text").toString() : QString()}, {"open", dialog != nullptr}};
    }
    if (verb == "trigger") {
        QAction* action = FindAction(target);
        if (!action || !action->isEnabled()) return {{"error", "no such command: " + target}};
        Later([action] { action->trigger(); });
        return {};
    }
    if (verb == "busy") {
        Later([] { QThread::sleep(3600); });
        return {};
    }
    if (verb == "endSession") {
        Later(EndSession);
        return {};
    }
    QWidget* widget = FindWidget(target);
    if (!widget) return {{"error", "no such widget: " + target}};
    if (verb == "get") {
        return {{"value", widget->property(value.toLatin1().constData()).toString()},
                {"visible", widget->isVisible()},
                {"width", widget->width()},
                {"height", widget->height()}};
    }
    if (verb == "click") Later([widget] { QTest::mouseClick(widget, Qt::LeftButton); });
    if (verb == "type") {
        Later([widget, value] {
            widget->setFocus();
            QTest::keyClicks(widget, value);
        });
    }
    if (verb == "key") Later([widget, value] { QTest::keySequence(widget, QKeySequence(value)); });
    if (verb == "picture") return {{"value", QString::number(int(widget->grab().save(value)))}};
    return {};
}

class Driver : public QObject {
public:
    explicit Driver(const QString& name) {
        QTimer::singleShot(0, this, [this, name] { server_.listen(name); });
        connect(&server_, &QLocalServer::newConnection, this, [this] {
            QLocalSocket* link = server_.nextPendingConnection();
            connect(link, &QLocalSocket::readyRead, link, [link] {
                while (link->canReadLine()) Answer(*link, QJsonDocument::fromJson(link->readLine()).object());
            });
        });
    }

private:
    static void Answer(QLocalSocket& link, const QJsonObject& question) {
        const auto reply = [&link](const QJsonObject& answer) {
            link.write(QJsonDocument(answer).toJson(QJsonDocument::Compact) + '\n');
            link.flush();
        };
        const QString verb = question.value("verb").toString();
        const QString target = question.value("target").toString();
        if (verb == "pageText") {
            PageText(target, reply);
        } else {
            reply(Act(verb, target, question.value("value").toString()));
        }
    }

    QLocalServer server_;
};

}  // namespace

class DriverPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "driver.json")
public:
    QObject* create(const QString& /*key*/, const QString& specification) override { return new Driver(specification); }
};

#include "driver_plugin.moc"

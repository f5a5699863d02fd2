#include "tools/framework/access_keys.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QStackedWidget>
#include <QTabWidget>

#include <algorithm>
#include <functional>
#include <vector>

namespace vellum {
namespace {

// A caption that stands on a form: what it reads, and how it is written back.
struct Caption {
    QString text;
    std::function<void(const QString&)> set;
    const QWidget* pane = nullptr;  // the innermost pane of a tab widget or a stack that it stands on
};

// The index of the marked letter; -1 when none is marked. Two in a row are a plain ampersand.
qsizetype MarkedLetter(const QString& caption) {
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != u'&') continue;
        if (caption[i + 1] != u'&') return i + 1;
        ++i;
    }
    return -1;
}

QString MarkedLetters(const QStringList& captions) {
    QString letters;
    for (const QString& caption : captions) {
        if (const qsizetype letter = MarkedLetter(caption); letter > 0) letters += caption[letter].toLower();
    }
    return letters;
}

qsizetype FreeLetter(const QString& caption, const QString& taken) {
    const auto isFree = [&](qsizetype i) {
        return caption[i].isLetterOrNumber() && caption[i].unicode() < 128 && !taken.contains(caption[i].toLower());
    };
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (isFree(i) && (i == 0 || caption[i - 1].isSpace() || caption[i - 1] == u'(')) return i;
    }
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (isFree(i)) return i;
    }
    return -1;
}

bool IsField(const QWidget* widget) {
    if (const auto* label = qobject_cast<const QLabel*>(widget)) return label->buddy();
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    // A tab bar has buttons of its own.
    return button && !button->text().isEmpty() && !button->inherits("QToolButton");
}

// The panes of a tab widget stand in a stack of its own.
const QWidget* PaneOf(const QWidget* widget) {
    for (; !widget->isWindow() && widget->parentWidget(); widget = widget->parentWidget()) {
        if (qobject_cast<const QStackedWidget*>(widget->parentWidget())) return widget;
    }
    return nullptr;
}

std::vector<Caption> CaptionsOf(QWidget& form) {
    std::vector<Caption> captions;
    for (QTabWidget* tabs : form.findChildren<QTabWidget*>()) {
        for (int i = 0; i < tabs->count(); ++i) {
            captions.push_back(
                {tabs->tabText(i), [tabs, i](const QString& text) { tabs->setTabText(i, text); }, PaneOf(tabs)});
        }
    }
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        if (auto* group = qobject_cast<QGroupBox*>(widget); group && MarkedLetter(group->title()) > 0) {
            // It keeps its own; the others have none.
            captions.push_back({group->title(), [](const QString&) {}, PaneOf(widget)});
        }
        if (!IsField(widget)) continue;
        if (auto* label = qobject_cast<QLabel*>(widget)) {
            captions.push_back({label->text(), [label](const QString& text) { label->setText(text); }, PaneOf(widget)});
        } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
            captions.push_back(
                {button->text(), [button](const QString& text) { button->setText(text); }, PaneOf(widget)});
        }
    }
    return captions;
}

// Returns the letters that are taken then.
QString SetOn(const std::vector<Caption>& captions, const QWidget* pane, const QString& taken) {
    std::vector<const Caption*> here;
    QStringList texts;
    for (const Caption& caption : captions) {
        if (caption.pane != pane) continue;
        here.push_back(&caption);
        texts << caption.text;
    }
    const QStringList marked = WithAccessKeys(texts, taken);
    for (std::size_t i = 0; i < here.size(); ++i) here[i]->set(marked.at(static_cast<qsizetype>(i)));
    return taken + MarkedLetters(marked);
}

// On a pane, or on what stands on none, and then on the panes in it.
void SetOnAndInside(const QWidget& form, const std::vector<Caption>& captions, const QWidget* pane,
                    const QString& taken) {
    const QString shared = SetOn(captions, pane, taken);
    for (const QStackedWidget* stack : form.findChildren<QStackedWidget*>()) {
        if (PaneOf(stack) != pane) continue;
        for (int i = 0; i < stack->count(); ++i) SetOnAndInside(form, captions, stack->widget(i), shared);
    }
}

}  // namespace

QStringList WithAccessKeys(const QStringList& captions, const QString& taken) {
    QString used = taken + MarkedLetters(captions);
    QStringList marked;
    for (QString caption : captions) {
        if (MarkedLetter(caption) < 0) {
            if (const qsizetype letter = FreeLetter(caption, used); letter >= 0) {
                used += caption[letter].toLower();
                caption.insert(letter, u'&');
            }
        }
        marked << caption;
    }
    return marked;
}

void SetAccessKeys(QWidget& form) {
    SetOnAndInside(form, CaptionsOf(form), nullptr, {});
}

}  // namespace vellum

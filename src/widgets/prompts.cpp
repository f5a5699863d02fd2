#include "widgets/prompts.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace vellum {
namespace {

constexpr QChar partSeparator = u'\0';

// A box with the text exactly as given: neither markup nor access keys are read out of it.
QMessageBox::StandardButton ShowBox(QWidget* parent, const QString& name, QMessageBox::Icon icon, const QString& text,
                                    const QString& title, QMessageBox::StandardButtons buttons,
                                    QMessageBox::StandardButton standard, QMessageBox::StandardButton escape) {
    QMessageBox box(icon, title, text, buttons, parent);
    box.setObjectName(name);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(standard);
    box.setEscapeButton(escape);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

Answer ShowQuestion(QWidget* parent, const QString& text, const QString& title, QMessageBox::StandardButtons buttons,
                    QMessageBox::StandardButton standard, QMessageBox::StandardButton escape) {
    switch (
        ShowBox(parent, QStringLiteral("QuestionBox"), QMessageBox::Question, text, title, buttons, standard, escape)) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        default:
            return Answer::Cancel;
    }
}

void OpenIn(QFileDialog& dialog, const QString& directory) {
    if (!directory.isEmpty() && QFileInfo(directory).isDir()) dialog.setDirectory(directory);
}

// The suffix that a name filter adds to a name without one: that of its first pattern; none for "*" and "*.*".
QString SuffixOfNameFilter(const QString& nameFilter) {
    const qsizetype open = nameFilter.lastIndexOf(u'(');
    const QString pattern = nameFilter.mid(open + 1).section(u' ', 0, 0).remove(u')');
    const QString suffix = pattern.mid(pattern.lastIndexOf(u'.') + 1);
    return pattern.startsWith(QLatin1String("*.")) && !suffix.contains(u'*') ? suffix : QString();
}

// "Web pages (*.htm;*.html)" without the patterns that stand at its end.
QString CaptionWithoutPatterns(const QString& caption) {
    const QString trimmed = caption.trimmed();
    const qsizetype open = trimmed.lastIndexOf(u'(');
    const bool patterns = open >= 0 && trimmed.endsWith(u')') && QStringView(trimmed).mid(open).contains(u'*');
    return patterns ? trimmed.first(open).trimmed() : trimmed;
}

// "*.*" means every file, also one without a suffix. So does "*.exe": programs have no suffix here.
QString ToolkitPatterns(const QString& patterns) {
    QStringList list;
    for (const QString& pattern : patterns.split(u';', Qt::SkipEmptyParts)) {
        const QString trimmed = pattern.trimmed();
        const bool every = trimmed == QLatin1String("*.*") || trimmed.compare(u"*.exe", Qt::CaseInsensitive) == 0;
        list << (every ? QStringLiteral("*") : trimmed);
    }
    return list.isEmpty() ? QStringLiteral("*") : list.join(u' ');
}

// The deepest directory that holds all `paths`, without a separator at its end unless it is the root.
QString CommonDirectory(const QStringList& paths) {
    QString common = QFileInfo(paths.first()).path();
    for (const QString& path : paths) {
        while (common != QLatin1String("/") && !path.startsWith(common + u'/')) common = QFileInfo(common).path();
    }
    return common;
}

QString WithSeparator(const QString& directory) {
    return directory.endsWith(u'/') ? directory : directory + u'/';
}

}  // namespace

void DialogPrompts::Message(QWidget* parent, const QString& text, const QString& title) {
    ShowBox(parent, QStringLiteral("MessageBox"), QMessageBox::Information, text, title, QMessageBox::Ok,
            QMessageBox::Ok, QMessageBox::Ok);
}

Answer DialogPrompts::AskYesNo(QWidget* parent, const QString& text, const QString& title, Answer standard) {
    return ShowQuestion(parent, text, title, QMessageBox::Yes | QMessageBox::No,
                        standard == Answer::Yes ? QMessageBox::Yes : QMessageBox::No, QMessageBox::No);
}

Answer DialogPrompts::AskYesNoCancel(QWidget* parent, const QString& text, const QString& title) {
    return ShowQuestion(parent, text, title, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
                        QMessageBox::Cancel);
}

int DialogPrompts::Choose(QWidget* parent, const QString& text, const QString& title, const QStringList& captions,
                          int standard, int escape) {
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent);
    box.setObjectName(QStringLiteral("ChoiceBox"));
    box.setTextFormat(Qt::PlainText);
    QList<QAbstractButton*> buttons;
    for (QString caption : captions) {
        // One role for all: they stand in their order on every desktop.
        buttons << box.addButton(caption.replace(u'&', QStringLiteral("&&")), QMessageBox::ActionRole);
    }
    box.setDefaultButton(qobject_cast<QPushButton*>(buttons.at(standard)));
    box.setEscapeButton(buttons.at(escape));
    box.exec();
    const auto pressed = buttons.indexOf(box.clickedButton());
    return pressed < 0 ? escape : static_cast<int>(pressed);
}

std::optional<QString> DialogPrompts::Input(QWidget* parent, const QString& prompt, const QString& title,
                                            const QString& initial) {
    QInputDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("InputBox"));
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setWindowTitle(title);
    dialog.setLabelText(
        QString(prompt).replace(u'&', QStringLiteral("&&")));  // the label has a buddy and reads access keys
    dialog.setTextValue(initial);
    for (QLabel* label : dialog.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.textValue();
}

QString DialogPrompts::OpenFile(QWidget* parent, const FileRequest& request) {
    QFileDialog dialog(parent, QStringLiteral("Open"));
    dialog.setObjectName(QStringLiteral("OpenFileDialog"));
    dialog.setFileMode(request.several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    dialog.setNameFilters(NameFilters(request.filter));
    OpenIn(dialog, request.directory);
    if (dialog.exec() != QDialog::Accepted) return {};
    return JoinChosenFiles(dialog.selectedFiles());
}

QString DialogPrompts::SaveFile(QWidget* parent, const FileRequest& request) {
    QFileDialog dialog(parent, QStringLiteral("Save As"));
    dialog.setObjectName(QStringLiteral("SaveFileDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    const QStringList filters = NameFilters(request.filter);
    dialog.setNameFilters(filters);
    // The dialog adds the suffix itself, before it asks whether to overwrite.
    dialog.setDefaultSuffix(SuffixOfNameFilter(filters.value(0)));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog](const QString& filter) { dialog.setDefaultSuffix(SuffixOfNameFilter(filter)); });
    OpenIn(dialog, request.directory);
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedFiles().value(0);
}

QString DialogPrompts::PickFolder(QWidget* parent, const QString& directory) {
    QFileDialog dialog(parent, QStringLiteral("Choose a Folder"));
    dialog.setObjectName(QStringLiteral("FolderDialog"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    OpenIn(dialog, directory);
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedFiles().value(0);
}

std::optional<ColorNumber> DialogPrompts::PickColor(QWidget* parent, ColorNumber initial) {
    QColorDialog dialog(ColorFromNumber(initial), parent);
    dialog.setObjectName(QStringLiteral("ColorDialog"));
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return NumberFromColor(dialog.selectedColor());
}

QStringList NameFilters(const QString& filter) {
    if (filter.isEmpty()) return {};
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const QString caption = CaptionWithoutPatterns(parts[i]);
        if (caption.isEmpty() && i + 1 >= parts.size()) continue;
        filters << QStringLiteral("%1 (%2)").arg(caption, ToolkitPatterns(parts.value(i + 1)));
    }
    return filters;
}

QString JoinChosenFiles(const QStringList& paths) {
    if (paths.size() < 2) return paths.value(0);
    const QString directory = CommonDirectory(paths);
    const qsizetype skipped = WithSeparator(directory).size();
    QStringList parts{directory};
    for (const QString& path : paths) parts << path.mid(skipped);
    return parts.join(partSeparator);
}

QStringList SplitChosenFiles(const QString& chosen) {
    if (chosen.isEmpty()) return {};
    QStringList parts = chosen.split(partSeparator);
    if (parts.size() == 1) return parts;
    const QString directory = WithSeparator(parts.takeFirst());
    for (QString& part : parts) part.prepend(directory);
    return parts;
}

}  // namespace vellum

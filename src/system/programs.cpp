#include "system/programs.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUrl>

#include <array>
#include <unistd.h>

namespace vellum {
namespace {

// The desktop's own programs for what other systems ship under a fixed name, the best known first.
struct Counterparts {
    QStringView name;
    std::array<QStringView, 10> programs;
};

constexpr std::array counterparts{
    Counterparts{u"calc.exe",
                 {u"gnome-calculator", u"kcalc", u"mate-calc", u"galculator", u"qalculate-gtk", u"qalculate-qt",
                  u"lxqt-calculator", u"speedcrunch", u"xcalc"}},
    Counterparts{u"charmap.exe", {u"gucharmap", u"kcharselect", u"gnome-characters", u"mate-character-map"}},
    Counterparts{u"clipbrd.exe",
                 {u"copyq", u"clipit", u"parcellite", u"diodon", u"xfce4-clipman-history", u"klipper", u"qlipper",
                  u"xclipboard"}},
    Counterparts{u"mplayer.exe",
                 {u"totem", u"vlc", u"celluloid", u"parole", u"dragon", u"smplayer", u"mpv", u"mplayer", u"ffplay"}},
    Counterparts{u"notepad.exe",
                 {u"gnome-text-editor", u"gedit", u"kwrite", u"kate", u"mousepad", u"pluma", u"xed", u"featherpad",
                  u"leafpad", u"l3afpad"}},
    Counterparts{u"mspaint.exe", {u"drawing", u"kolourpaint", u"mtpaint", u"pinta", u"krita", u"gimp"}},
    Counterparts{u"findfile.exe",
                 {u"catfish", u"kfind", u"mate-search-tool", u"gnome-search-tool", u"pcmanfm-qt", u"pcmanfm"}},
    Counterparts{u"explorer.exe",
                 {u"nautilus", u"dolphin", u"thunar", u"nemo", u"caja", u"pcmanfm-qt", u"pcmanfm", u"spacefm"}},
    Counterparts{u"iexplore.exe",
                 {u"x-www-browser", u"firefox", u"firefox-esr", u"chromium", u"epiphany-browser", u"falkon",
                  u"konqueror", u"sensible-browser"}},
};

QString ExecutableFile(const QString& path) {
    const QFileInfo file(path);
    return file.isFile() && file.isExecutable() ? file.absoluteFilePath() : QString();
}

// The program that a command word names: a path, taken from `workingDirectory`, or a name on the search path.
QString Located(const QString& word, const QString& workingDirectory) {
    if (!word.contains('/')) return QStandardPaths::findExecutable(word);
    return ExecutableFile(QDir(workingDirectory).absoluteFilePath(word));
}

// Runs a short helper of the desktop. One that fails, fails soon; one that is still there after half a second is
// showing the file, and goes on without us, in a session of its own. Null devices keep it off our terminal.
bool RunHelper(const QString& program, const QStringList& arguments, const QString& workingDirectory) {
    auto* process = new QProcess;
    process->setProgram(program);
    process->setArguments(arguments);
    process->setWorkingDirectory(workingDirectory);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { ::setsid(); });
    process->start();
    constexpr int failsWithin = 500;
    if (!process->waitForStarted() || process->waitForFinished(failsWithin)) {
        const bool fine = process->error() == QProcess::UnknownError && process->exitStatus() == QProcess::NormalExit &&
                          process->exitCode() == 0;
        delete process;
        return fine;
    }
    // A QProcess that is destroyed takes its program along, so this one is let go only when the program has ended.
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    return true;
}

// An address that can be handed on, or an invalid one. A bare "www.site" is completed; a bare word is no address.
QUrl AddressOf(const QString& text) {
    QUrl url(text, QUrl::TolerantMode);
    if (url.isValid() && url.scheme().size() > 1) return url;
    const bool bareHost = text.startsWith("www.", Qt::CaseInsensitive) || text.startsWith("ftp.", Qt::CaseInsensitive);
    return bareHost ? QUrl::fromUserInput(text) : QUrl();
}

constexpr auto verbEntry = "vellumcraft-edit.desktop";

// What a short program prints, without the line end; empty when it fails or takes longer than it should.
QString OutputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    process.closeReadChannel(QProcess::StandardError);
    constexpr int patience = 3000;
    if (!process.waitForFinished(patience) || process.exitCode() != 0) return {};
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

// Where no default is written down, desktops take the first program they find, and look among the person's own entries
// first. So the program that opens these files so far is written down before ours joins them.
void KeepDefaultHandlers() {
    const QString tool = QStandardPaths::findExecutable("xdg-mime");
    if (tool.isEmpty()) return;
    for (const char* type : {"text/html", "application/xhtml+xml"}) {
        const QString handler = OutputOf(tool, {"query", "default", type});
        if (!handler.isEmpty() && handler != verbEntry) OutputOf(tool, {"default", handler, type});
    }
}

// A string as a value of a desktop entry holds it.
QString DesktopValue(QString text) {
    return text.replace('\\', "\\\\").replace('\n', "\\n").replace('\r', "\\r").replace('\t', "\\t");
}

// One argument of an Exec line: quoted, with the four characters escaped that keep a meaning inside quotes, and with
// the percent sign doubled, which would start a field code.
QString ExecArgument(const QString& argument) {
    QString quoted;
    for (const QChar letter : argument) {
        if (QStringView(u"\"`$\\").contains(letter)) quoted += '\\';
        if (letter == '%') quoted += '%';
        quoted += letter;
    }
    return '"' + quoted + '"';
}

}  // namespace

bool RunCommand(const QString& command, const QString& argument, const QString& workingDirectory) {
    const QString directory = workingDirectory.isEmpty() ? QDir::currentPath() : workingDirectory;
    QStringList words;
    if (const QString whole = command.trimmed(); whole.contains('/') && !Located(whole, directory).isEmpty()) {
        words = {whole};
    } else {
        words = QProcess::splitCommand(command);
    }
    if (words.isEmpty()) return false;
    const QString program = Located(words.takeFirst(), directory);
    if (program.isEmpty()) return false;
    if (!argument.isEmpty()) words << argument;
    return QProcess::startDetached(program, words, directory);
}

bool OpenWithDefault(const QString& pathOrAddress, const QString& workingDirectory) {
    if (pathOrAddress.trimmed().isEmpty()) return false;
    const QString directory = workingDirectory.isEmpty() ? QDir::currentPath() : workingDirectory;
    QUrl url = AddressOf(pathOrAddress);
    const QFileInfo file(url.isLocalFile() ? url.toLocalFile() : QDir(directory).absoluteFilePath(pathOrAddress));
    if (file.exists()) url = QUrl::fromLocalFile(file.absoluteFilePath());
    if (!url.isValid() || url.isEmpty() || (url.isLocalFile() && !file.exists())) return false;

    const QString opener = QStandardPaths::findExecutable("xdg-open");
    if (opener.isEmpty()) return QDesktopServices::openUrl(url);
    // A file goes by its path, in which "#" and "%" are letters like any others; an address goes encoded.
    const QString target = url.isLocalFile() ? file.absoluteFilePath() : QString::fromUtf8(url.toEncoded());
    return RunHelper(opener, {target}, directory);
}

QString FindProgram(const QString& name) {
    if (name.isEmpty()) return {};
    for (const Counterparts& entry : counterparts) {
        if (entry.name.compare(name, Qt::CaseInsensitive) != 0) continue;
        for (const QStringView program : entry.programs) {
            if (program.isEmpty()) break;
            if (QString path = QStandardPaths::findExecutable(program.toString()); !path.isEmpty()) return path;
        }
    }
    return Located(name, QDir::currentPath());
}

QString WindowsDirectoryPath() {
    const QString directory = QStringLiteral("/usr/bin");
    return QFileInfo(directory).isDir() ? directory : QString();
}

QString EditVerbDesktopEntry(const QString& program) {
    // NoDisplay keeps the entry out of the menus, where the program has its own, and leaves it in "Open With".
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Version=1.0\n"
           "Name=Edit with Vellumcraft\n"
           "Comment=Edit the source of a web page\n"
           "Exec=" +
           DesktopValue(ExecArgument(program) + " %f") +
           "\n"
           "Icon=vellumcraft\n"
           "Terminal=false\n"
           "NoDisplay=true\n"
           "MimeType=text/html;application/xhtml+xml;\n";
}

bool AddEditVerb(const QString& program) {
    if (program.isEmpty()) return false;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (data.isEmpty()) return false;
    const QString applications = data + "/applications";
    if (!QDir().mkpath(applications)) return false;
    KeepDefaultHandlers();
    QSaveFile entry(applications + '/' + verbEntry);
    if (!entry.open(QIODevice::WriteOnly)) return false;
    entry.write(EditVerbDesktopEntry(program).toUtf8());
    if (!entry.commit()) return false;
    if (const QString update = QStandardPaths::findExecutable("update-desktop-database"); !update.isEmpty()) {
        QProcess::startDetached(update, {"-q", applications});
    }
    return true;
}

}  // namespace vellum

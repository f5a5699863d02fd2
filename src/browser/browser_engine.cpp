#include "browser/browser_engine.h"

#include "browser/net_door.h"
#include "browser/script_files.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLoggingCategory>

#include <cstdio>
#include <fcntl.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vellum {
namespace {

constexpr auto switchesVariable = "QTWEBENGINE_CHROMIUM_FLAGS";
constexpr auto sandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";

bool Speaks(const QByteArray& switches, const QByteArray& name) {
    for (const QByteArray& one : switches.simplified().split(' '))
        if (one == name || one.startsWith(name + '=')) return true;
    return false;
}

QString PlatformName() {
    return qGuiApp != nullptr ? QGuiApplication::platformName()
                              : qEnvironmentVariable("QT_QPA_PLATFORM").section(':', 0, 0);
}

bool HasGraphics() {
    const QString platform = PlatformName();
    if (platform == QLatin1String("offscreen") || platform == QLatin1String("minimal")) return false;
    for (const char* device : {"/dev/dri", "/dev/nvidiactl", "/dev/dxg", "/dev/mali0"})
        if (QFileInfo::exists(QLatin1String(device))) return true;
    return false;
}

// The engine ends the whole program when it can't make a user namespace for its sandbox, so a
// child process tries it first. Between fork and exit the child makes system calls only.
bool CanMakeUserNamespace() {
    const pid_t child = ::fork();
    if (child < 0) return false;
    if (child == 0) {
        if (::unshare(CLONE_NEWUSER) != 0) ::_exit(1);
        const int file = ::open("/proc/self/setgroups", O_WRONLY | O_CLOEXEC);
        if (file < 0) ::_exit(1);
        ::_exit(::write(file, "deny", 4) == 4 ? 0 : 1);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool HasEngineProgram() {
    const QString chosen = qEnvironmentVariable("QTWEBENGINEPROCESS_PATH");
    const QString usual =
        QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) + QLatin1String("/QtWebEngineProcess");
    return QFileInfo(chosen.isEmpty() ? usual : chosen).isExecutable();
}

EngineSurroundings LookAround() {
    return {.root = ::geteuid() == 0,
            .sandboxOff = qEnvironmentVariableIntValue(sandboxVariable) != 0,
            .graphics = HasGraphics(),
            .switches = qgetenv(switchesVariable),
            .door = DoorAddress()};
}

// With this, the engine takes every local page for an origin of its own, so that its scripts can look into no other
// file, not even one that they show in a frame. The engine's own attribute for that refuses the page its pictures too.
QByteArray WithPagesApart(const QByteArray& switches) {
    const QByteArray name = "--blink-settings=";
    const QByteArray apart = "allowFileAccessFromFileURLs=false";
    QByteArray setting = name;
    for (const QByteArray& one : switches.split(' '))
        if (one.startsWith(name)) setting = one + ',';  // the last one counts
    if (setting.endsWith(apart + ',')) return switches;
    return switches + (switches.isEmpty() ? "" : " ") + setting + apart;
}

QString LookForObstacle() {
    if (!HasEngineProgram()) return QStringLiteral("The preview needs the browser engine, which is not installed.");
    const EngineSurroundings around = LookAround();
    const bool sandbox = !around.sandboxOff && !Speaks(EngineSwitches(around), "--no-sandbox");
    if (sandbox && !CanMakeUserNamespace())
        return QStringLiteral(
            "The preview can't be shown: this system doesn't let the browser engine start its sandbox.");
    return {};
}

}  // namespace

QByteArray EngineSwitches(const EngineSurroundings& surroundings) {
    QByteArray switches = surroundings.switches.simplified();
    const auto add = [&switches](const QByteArray& name) {
        if (!Speaks(switches, name)) switches += (switches.isEmpty() ? "" : " ") + name;
    };
    if (surroundings.root && !surroundings.sandboxOff) add("--no-sandbox");
    const bool graphicsChosen =
        switches.contains("-gpu") || switches.contains("--use-gl") || switches.contains("--use-angle");
    if (!surroundings.graphics && !graphicsChosen) add("--disable-gpu");
    for (const char* quiet : {"--disable-background-networking", "--disable-component-update",
                              "--disable-domain-reliability", "--disable-breakpad", "--no-pings", "--no-first-run"})
        add(quiet);
    // Not all ways to the network pass by the program: calls between browsers, sockets of workers and guesses at what
    // will be needed don't. So the engine itself finds no host but the door, sends nothing but what goes through it,
    // and takes the addresses of this machine for no exception. Of a switch that is given twice, the last one counts.
    for (const QByteArray& wall :
         {"--proxy-server=socks5://" + surroundings.door, QByteArray("--proxy-bypass-list=<-loopback>"),
          "--host-resolver-rules=\"MAP * ~NOTFOUND, EXCLUDE " + surroundings.door.left(surroundings.door.indexOf(':')) +
              '"',
          QByteArray("--force-webrtc-ip-handling-policy=disable_non_proxied_udp")})
        if (!switches.contains(wall)) switches += ' ' + wall;
    return WithPagesApart(switches);
}

QString EngineObstacle() {
    if (qEnvironmentVariableIntValue("VELLUMCRAFT_NO_BROWSER") == 1)
        return QStringLiteral("The preview is switched off by VELLUMCRAFT_NO_BROWSER.");
    static const QString obstacle = LookForObstacle();
    return obstacle;
}

void PrepareBrowserEngine() {
    const EngineSurroundings around = LookAround();
    if (Speaks(EngineSwitches(around), "--no-sandbox") && !Speaks(around.switches, "--no-sandbox"))
        std::fputs("vellumcraft: running as root, so the preview's browser engine runs without its sandbox.\n", stderr);
    RegisterScriptScheme();
    // Without a graphics device pages are painted in memory. The window then stays the same when its first page
    // appears; see MakeWindowReady in browser_surface.cpp.
    if (!around.graphics && qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND")) qputenv("QT_QUICK_BACKEND", "software");
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext.info=false\nqt.webenginecontext.debug=false"));
}

void StartBrowserEngine(const std::function<void()>& start) {
    const EngineSurroundings around = LookAround();
    qputenv(switchesVariable, EngineSwitches(around));
    start();
    if (around.switches.isEmpty()) {
        qunsetenv(switchesVariable);
    } else {
        qputenv(switchesVariable, around.switches);
    }
}

}  // namespace vellum

#include "tests/browser/network_calls.h"

#include <QHostAddress>

#include <arpa/inet.h>
#include <dlfcn.h>
#include <mutex>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace {

std::mutex mutex;
bool counting = false;
QStringList lookUps;
QStringList connections;
int datagrams = 0;

bool IsInternet(const sockaddr* address) {
    return address->sa_family == AF_INET || address->sa_family == AF_INET6;
}

bool IsDatagramSocket(int descriptor) {
    int type = 0;
    socklen_t size = sizeof type;
    return ::getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &type, &size) == 0 && type == SOCK_DGRAM;
}

// Telling a socket where it is to send to sends nothing yet.
void NoteConnection(int descriptor, const sockaddr* address) {
    if (!IsInternet(address) || IsDatagramSocket(descriptor)) return;
    const quint16 port = ntohs(reinterpret_cast<const sockaddr_in*>(address)->sin_port);  // at one place in both kinds
    const std::scoped_lock lock(mutex);
    if (counting) connections << QHostAddress(address).toString() + ':' + QString::number(port);
}

void NoteDatagrams(int descriptor, int number) {
    sockaddr_storage own = {};
    socklen_t size = sizeof own;
    if (::getsockname(descriptor, reinterpret_cast<sockaddr*>(&own), &size) != 0) return;
    if (!IsInternet(reinterpret_cast<sockaddr*>(&own)) || !IsDatagramSocket(descriptor)) return;
    const std::scoped_lock lock(mutex);
    if (counting) datagrams += number;
}

template <typename Function>
Function* SystemCall(Function* /*own*/, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

// A function of the program goes before the one of the same name in the C library, also for the libraries.
extern "C" {

int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** result) {
    if (name == nullptr) return SystemCall(&getaddrinfo, "getaddrinfo")(name, service, hints, result);
    const QByteArrayView asked(name);
    {
        const std::scoped_lock lock(mutex);
        if (counting) lookUps << QString::fromUtf8(asked.toByteArray());
    }
    const bool ours = asked.endsWith(".test") || asked.endsWith(".test.");
    return SystemCall(&getaddrinfo, "getaddrinfo")(ours ? "127.0.0.1" : name, service, hints, result);
}

int connect(int descriptor, const sockaddr* address, socklen_t size) {
    NoteConnection(descriptor, address);
    return SystemCall(&connect, "connect")(descriptor, address, size);
}

ssize_t send(int descriptor, const void* bytes, size_t size, int flags) {
    NoteDatagrams(descriptor, 1);
    return SystemCall(&send, "send")(descriptor, bytes, size, flags);
}

ssize_t sendto(int descriptor, const void* bytes, size_t size, int flags, const sockaddr* address, socklen_t length) {
    NoteDatagrams(descriptor, 1);
    return SystemCall(&sendto, "sendto")(descriptor, bytes, size, flags, address, length);
}

ssize_t sendmsg(int descriptor, const msghdr* message, int flags) {
    NoteDatagrams(descriptor, 1);
    return SystemCall(&sendmsg, "sendmsg")(descriptor, message, flags);
}

int sendmmsg(int descriptor, mmsghdr* messages, unsigned number, int flags) {
    NoteDatagrams(descriptor, static_cast<int>(number));
    return SystemCall(&sendmmsg, "sendmmsg")(descriptor, messages, number, flags);
}
}

namespace vellum::test {

NetworkCalls::NetworkCalls() {
    const std::scoped_lock lock(mutex);
    lookUps.clear();
    connections.clear();
    datagrams = 0;
    counting = true;
}

NetworkCalls::~NetworkCalls() {
    const std::scoped_lock lock(mutex);
    counting = false;
}

QStringList NetworkCalls::LookUps() const {
    const std::scoped_lock lock(mutex);
    return lookUps;
}

QStringList NetworkCalls::Connections() const {
    const std::scoped_lock lock(mutex);
    return connections;
}

int NetworkCalls::Datagrams() const {
    const std::scoped_lock lock(mutex);
    return datagrams;
}

}  // namespace vellum::test

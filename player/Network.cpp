// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Network.h"

#include "core/ErrorText.h"
#include "player/ScriptError.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/tcp.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace player {

struct Lookup {
    std::mutex mutex;
    bool done = false;
    std::vector<Address> addresses;
};

namespace {

constexpr int kMostLookups = 8;
constexpr int kBacklog = 16;

// Texts of connections, in place of the general ones.
constexpr std::array kErrors = {
    core::ErrorText{EACCES, "no hay permiso para ese puerto"},
    core::ErrorText{EMFILE, "hay demasiadas conexiones abiertas"},
};

std::string TextOf(int code) {
    const char* const known = core::TextOfError(kErrors, code);
    return known ? known : "error de red " + std::to_string(code);
}

std::vector<Address> Resolve(const std::string& host, int port, int flags) {
    addrinfo wanted = {};
    wanted.ai_socktype = SOCK_STREAM;
    wanted.ai_flags = flags | AI_NUMERICSERV;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &wanted, &found) != 0)
        return {};
    std::vector<Address> addresses;
    for (const addrinfo* at = found; at; at = at->ai_next) {
        Address address;
        address.size = at->ai_addrlen;
        std::memcpy(&address.storage, at->ai_addr, at->ai_addrlen);
        addresses.insert(addresses.begin(), address);
    }
    freeaddrinfo(found);
    return addresses;
}

std::atomic<int> lookups = 0;

std::shared_ptr<Lookup> Start(const std::string& host, int port) {
    if (lookups.fetch_add(1) >= kMostLookups) {
        --lookups;
        throw ScriptError("hay demasiadas conexiones en camino");
    }
    auto lookup = std::make_shared<Lookup>();
    try {
        std::thread([lookup, host, port] {
            std::vector<Address> addresses = Resolve(host, port, AI_ADDRCONFIG);
            --lookups;
            const std::lock_guard lock(lookup->mutex);
            lookup->addresses = std::move(addresses);
            lookup->done = true;
        }).detach();
    } catch (const std::system_error&) {
        --lookups;
        throw ScriptError("no se puede buscar '" + host + "'");
    }
    return lookup;
}

core::FileDescriptor MakeSocket(int family) {
    return core::FileDescriptor(socket(family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

void SendAtOnce(const core::FileDescriptor& descriptor) {
    const int yes = 1;
    setsockopt(descriptor.Number(), IPPROTO_TCP, TCP_NODELAY, &yes, sizeof(yes));
}

bool WouldWait(int code) {
    return code == EAGAIN || code == EWOULDBLOCK || code == EINTR;
}

} // namespace

Socket Socket::Connect(const std::string& host, int port) {
    Socket made(State::Resolving, core::FileDescriptor());
    made.m_addresses = Resolve(host, port, AI_NUMERICHOST);
    if (made.m_addresses.empty())
        made.m_lookup = Start(host, port);
    else
        made.TryNext();
    return made;
}

Socket Socket::Listen(int port) {
    core::FileDescriptor descriptor = MakeSocket(AF_INET);
    const int yes = 1;
    sockaddr_in any = {};
    any.sin_family = AF_INET;
    any.sin_port = htons(static_cast<uint16_t>(port));
    if (!descriptor ||
        setsockopt(descriptor.Number(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes)) != 0 ||
        bind(descriptor.Number(), reinterpret_cast<const sockaddr*>(&any), sizeof(any)) != 0 ||
        listen(descriptor.Number(), kBacklog) != 0)
        throw ScriptError("puerto " + std::to_string(port) + ": " + TextOf(errno));
    return {State::Listening, std::move(descriptor)};
}

// True as long as there is something to read, even if the other side has gone.
bool Socket::Connected() {
    Advance();
    if (m_state != State::Connected)
        return false;
    char next = 0;
    const ssize_t count = recv(m_descriptor.Number(), &next, 1, MSG_PEEK);
    if (count == 0)
        Close("el otro lado cerró la conexión");
    else if (count < 0 && !WouldWait(errno))
        Fail(errno);
    return m_state == State::Connected;
}

std::optional<Socket> Socket::Accept() {
    core::FileDescriptor accepted(
        accept4(m_descriptor.Number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!accepted)
        return std::nullopt;
    SendAtOnce(accepted);
    return Socket(State::Connected, std::move(accepted));
}

std::string Socket::Receive() {
    if (!Connected())
        return "";
    std::string bytes(kMostReceived, '\0');
    const ssize_t count = recv(m_descriptor.Number(), bytes.data(), bytes.size(), 0);
    bytes.resize(static_cast<size_t>(std::max<ssize_t>(count, 0)));
    return bytes;
}

size_t Socket::Send(std::string_view bytes) {
    Advance();
    if (m_state != State::Connected)
        return 0;
    const ssize_t count = send(m_descriptor.Number(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0 && !WouldWait(errno))
        Fail(errno);
    return static_cast<size_t>(std::max<ssize_t>(count, 0));
}

void Socket::Close(const std::string& reason) {
    if (m_state != State::Closed)
        m_failure = reason;
    m_state = State::Closed;
    m_descriptor = core::FileDescriptor();
    m_lookup.reset();
    m_addresses.clear();
}

void Socket::Advance() {
    if (m_state == State::Resolving && m_lookup) {
        const std::shared_ptr<Lookup> lookup = m_lookup;
        const std::lock_guard lock(lookup->mutex);
        if (!lookup->done)
            return;
        m_addresses = std::move(lookup->addresses);
        m_lookup.reset();
        if (m_addresses.empty())
            return Close("no se encuentra ese sitio");
        TryNext();
    }
    if (m_state != State::Connecting)
        return;
    pollfd waiting = {m_descriptor.Number(), POLLOUT, 0};
    if (poll(&waiting, 1, 0) <= 0)
        return;
    int code = 0;
    socklen_t size = sizeof(code);
    getsockopt(m_descriptor.Number(), SOL_SOCKET, SO_ERROR, &code, &size);
    if (code == 0) {
        m_state = State::Connected;
        SendAtOnce(m_descriptor);
    } else if (m_addresses.empty()) {
        Fail(code);
    } else {
        TryNext();
    }
}

void Socket::TryNext() {
    int code = 0;
    while (!m_addresses.empty()) {
        const Address address = m_addresses.back();
        m_addresses.pop_back();
        m_descriptor = MakeSocket(address.storage.ss_family);
        m_state = State::Connecting;
        if (m_descriptor &&
            (connect(m_descriptor.Number(), reinterpret_cast<const sockaddr*>(&address.storage),
                     address.size) == 0 ||
             errno == EINPROGRESS))
            return;
        code = errno;
    }
    Fail(code);
}

void Socket::Fail(int code) {
    Close(TextOf(code));
}

void Network::CheckRoom() {
    std::erase_if(m_sockets, [](const std::weak_ptr<Socket>& socket) {
        const auto open = socket.lock();
        return !open || open->Closed();
    });
    if (m_sockets.size() >= kMostSockets)
        throw ScriptError(TextOf(EMFILE));
}

std::shared_ptr<Socket> Network::Add(Socket socket) {
    auto added = std::make_shared<Socket>(std::move(socket));
    m_sockets.push_back(added);
    return added;
}

void Network::CloseAll() {
    for (const auto& socket : m_sockets)
        if (const auto open = socket.lock())
            open->Close();
    m_sockets.clear();
}

std::vector<Connection> Network::Connections() {
    std::vector<Connection> outside;
    std::vector<Connection> local;
    ifaddrs* all = nullptr;
    if (getifaddrs(&all) != 0)
        return {};
    for (const ifaddrs* at = all; at; at = at->ifa_next) {
        if (!at->ifa_addr || at->ifa_addr->sa_family != AF_INET || (at->ifa_flags & IFF_UP) == 0)
            continue;
        std::array<char, INET_ADDRSTRLEN> text = {};
        const auto* const address = reinterpret_cast<const sockaddr_in*>(at->ifa_addr);
        inet_ntop(AF_INET, &address->sin_addr, text.data(), text.size());
        ((at->ifa_flags & IFF_LOOPBACK) != 0 ? local : outside)
            .push_back({at->ifa_name, text.data()});
    }
    freeifaddrs(all);
    return outside.empty() ? local : outside;
}

} // namespace player

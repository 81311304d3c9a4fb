// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDescriptor.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace player {

struct Address {
    sockaddr_storage storage = {};
    socklen_t size = 0;
};

/// Looks a name up in a thread of its own, for the system may take its time.
struct Lookup;

/// A TCP socket that never waits: what isn't there yet answers empty.
class Socket {
public:
    static constexpr size_t kMostReceived = 65536;

    /// Goes on connecting in the calls that follow.
    static Socket Connect(const std::string& host, int port);
    /// Throws ScriptError.
    static Socket Listen(int port);

    bool Connected();
    /// Why it isn't connected, once that is sure.
    const std::string& Failure() const { return m_failure; }
    bool Listening() const { return m_state == State::Listening; }
    bool Closed() const { return m_state == State::Closed; }
    std::optional<Socket> Accept();
    std::string Receive();
    /// How many bytes went out.
    size_t Send(std::string_view bytes);
    void Close(const std::string& reason = "la conexión está cerrada");

private:
    enum class State { Resolving, Connecting, Connected, Listening, Closed };

    Socket(State state, core::FileDescriptor descriptor)
        : m_state(state), m_descriptor(std::move(descriptor)) {}

    void Advance();
    void TryNext();
    void Fail(int code);

    State m_state;
    core::FileDescriptor m_descriptor;
    std::shared_ptr<Lookup> m_lookup;
    std::vector<Address> m_addresses; // still to be tried, the next one last
    std::string m_failure;
};

/// A connection that the machine has to the world.
struct Connection {
    std::string name;
    std::string address;
};

/// The network as the script uses it.
class Network {
public:
    static constexpr size_t kMostSockets = 64;

    /// Throws ScriptError if too many are open.
    void CheckRoom();
    std::shared_ptr<Socket> Add(Socket socket);
    void CloseAll();

    /// The local one only if there is no other.
    static std::vector<Connection> Connections();
    size_t chosen = 0;

private:
    std::vector<std::weak_ptr<Socket>> m_sockets;
};

} // namespace player

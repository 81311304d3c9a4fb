// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDescriptor.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
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
    static constexpr std::size_t kMostReceived = 65536;

    /// Goes on connecting in the calls that follow.
    static Socket Connect(const std::string& host, int port);
    /// Throws ScriptError.
    static Socket Listen(int port);

    bool Connected();
    /// Why it isn't connected, once that is sure.
    const std::string& Failure() const { return failure_; }
    bool Listening() const { return state_ == State::Listening; }
    bool Closed() const { return state_ == State::Closed; }
    std::optional<Socket> Accept();
    std::string Receive();
    /// How many bytes went out.
    std::size_t Send(std::string_view bytes);
    void Close(const std::string& reason = "la conexión está cerrada");

private:
    enum class State { Resolving, Connecting, Connected, Listening, Closed };

    Socket(State state, core::FileDescriptor descriptor)
        : state_(state), descriptor_(std::move(descriptor)) {}

    void Advance();
    void TryNext();
    void Fail(int code);

    State state_;
    core::FileDescriptor descriptor_;
    std::shared_ptr<Lookup> lookup_;
    std::vector<Address> addresses_; // still to be tried, the next one last
    std::string failure_;
};

/// A connection that the machine has to the world.
struct Connection {
    std::string name;
    std::string address;
};

/// The network as the script uses it.
class Network {
public:
    static constexpr std::size_t kMostSockets = 64;

    /// Throws ScriptError if too many are open.
    void CheckRoom();
    std::shared_ptr<Socket> Add(Socket socket);
    void CloseAll();

    /// The local one only if there is no other.
    static std::vector<Connection> Connections();
    std::size_t chosen = 0;

private:
    std::vector<std::weak_ptr<Socket>> sockets_;
};

} // namespace player

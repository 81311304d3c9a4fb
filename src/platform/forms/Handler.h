// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>

namespace platform {

/// Runs an event handler. What it fails with is shown to the user with the error icon, and the
/// program goes on.
void RunHandler(const std::function<void()>& handler);

/// Connects a signal to an event handler without arguments, run as above.
template<class Sender, class Signal, class Receiver>
void OnEvent(const Sender* sender, Signal signal, Receiver* receiver, void (Receiver::*handler)()) {
    QObject::connect(sender, signal, receiver, [receiver, handler] {
        RunHandler([receiver, handler] { (receiver->*handler)(); });
    });
}

} // namespace platform

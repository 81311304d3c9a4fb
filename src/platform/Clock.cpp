// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Clock.h"

#include <chrono>
#include <thread>
#include <utility>

namespace platform {
namespace {

std::function<void(int)>& Replacement() {
    static std::function<void(int)> sleep;
    return sleep;
}

} // namespace

void Sleep(int milliseconds) {
    if (Replacement())
        Replacement()(milliseconds);
    else
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void ReplaceSleep(std::function<void(int)> sleep) {
    Replacement() = std::move(sleep);
}

} // namespace platform

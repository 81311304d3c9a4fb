// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/Clock.h"

#include <chrono>
#include <thread>
#include <utility>

namespace platform {
namespace {

std::function<void(int)>& OtherSleep() {
    static std::function<void(int)> sleep;
    return sleep;
}

std::function<int64_t()>& OtherClock() {
    static std::function<int64_t()> now;
    return now;
}

} // namespace

void Sleep(int milliseconds) {
    if (OtherSleep())
        OtherSleep()(milliseconds);
    else
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void ReplaceSleep(std::function<void(int)> sleep) {
    OtherSleep() = std::move(sleep);
}

int64_t Now() {
    using namespace std::chrono;
    if (OtherClock())
        return OtherClock()();
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void ReplaceNow(std::function<int64_t()> now) {
    OtherClock() = std::move(now);
}

} // namespace platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/Clock.h"

#include <chrono>
#include <thread>

namespace platform {

using std::chrono::milliseconds;

Seam<std::function<void(int)>>& SleepSeam() {
    static Seam<std::function<void(int)>> seam(
        [](int time) { std::this_thread::sleep_for(milliseconds(time)); });
    return seam;
}

void Sleep(int time) {
    SleepSeam().Current()(time);
}

Seam<std::function<int64_t()>>& NowSeam() {
    static Seam<std::function<int64_t()>> seam([] {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return int64_t{std::chrono::duration_cast<milliseconds>(now).count()};
    });
    return seam;
}

int64_t Now() {
    return NowSeam().Current()();
}

} // namespace platform

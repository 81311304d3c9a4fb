// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FileTime.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <ratio>

namespace platform {
namespace {

constexpr qint64 kStepsPerSecond = 10'000'000;
constexpr qint64 kSecondsTo1970 = 11'644'473'600;

} // namespace

qint64 ToFileTime(const timespec& time) {
    constexpr qint64 kLast = std::numeric_limits<qint64>::max() / kStepsPerSecond - 1;
    const qint64 seconds = std::clamp(qint64{time.tv_sec}, -kSecondsTo1970, kLast - kSecondsTo1970);
    return (seconds + kSecondsTo1970) * kStepsPerSecond + time.tv_nsec / 100;
}

SystemTime FileTimeToSystemTime(qint64 fileTime) {
    using namespace std::chrono;
    using Steps = duration<qint64, std::ratio<1, kStepsPerSecond>>;
    const sys_seconds moment(floor<seconds>(Steps(fileTime)) - seconds(kSecondsTo1970));
    const auto today = floor<days>(moment);
    const year_month_day date(today);
    const hh_mm_ss time(moment - today);
    return {static_cast<int>(date.year()),
            static_cast<unsigned>(date.month()),
            static_cast<unsigned>(date.day()),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

} // namespace platform

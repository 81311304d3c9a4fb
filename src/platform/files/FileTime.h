// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <ctime>

namespace platform {

/// A calendar date and time in UTC.
struct SystemTime {
    int year;
    unsigned month; ///< from 1
    unsigned day;   ///< from 1
    int hour;
    int minute;
    int second;
};

/// File times count 100 ns since 1601-01-01 in UTC. A time outside their range becomes the nearest
/// one within.
qint64 ToFileTime(const timespec& time);
SystemTime FileTimeToSystemTime(qint64 fileTime);

} // namespace platform

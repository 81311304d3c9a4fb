// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <ctime>

namespace platform {

/// A moment in UTC by the calendar.
struct SystemTime {
    int year;
    unsigned month; ///< from 1
    unsigned day;   ///< from 1
    int hour;
    int minute;
    int second;
};

/// File times count steps of 100 ns since the begin of 1601, in UTC. A moment outside their range
/// is the nearest one within.
qint64 ToFileTime(const timespec& time);
SystemTime FileTimeToSystemTime(qint64 fileTime);

} // namespace platform

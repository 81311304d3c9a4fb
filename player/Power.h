// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace player {

/// The machine's power supply. Without a battery it's on mains, with full charge.
struct Power {
    enum class Charging { No, Yes, Full };

    bool online = true;
    bool battery = false;
    Charging charging = Charging::No;
    int percent = 100;
    int minutes = 0;     // left on battery; 0 if nobody knows
    int temperature = 0; // degrees Celsius, of the first battery
    double volts = 0;    // of the first battery

    bool Low() const { return battery && !online && percent <= kLow; }

    static constexpr int kLow = 10;
};

/// Reads the files below /sys/class/power_supply, or a folder laid out like it (the kernel's
/// Documentation/ABI/testing/sysfs-class-power).
Power ReadPower(const std::filesystem::path& folder);

} // namespace player

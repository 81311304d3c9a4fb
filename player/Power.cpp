// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Power.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace player {
namespace {

namespace fs = std::filesystem;

constexpr double kMinutesPerHour = 60;
constexpr double kSecondsPerMinute = 60;
constexpr double kMicro = 1e6;
constexpr double kMostMinutes = 60.0 * 24 * 365;

// The folder of one battery or mains supply, with a file for each value.
struct Supply {
    fs::path folder;

    std::string Text(const char* name) const {
        std::string line;
        std::getline(std::ifstream(folder / name), line);
        return line;
    }

    double Value(const char* name) const {
        double value = 0;
        return std::ifstream(folder / name) >> value ? value : 0;
    }

    bool Is(const char* name, double value) const {
        return !Text(name).empty() && Value(name) == value;
    }

    // The batteries of a mouse or a headset don't feed the machine.
    bool FeedsMachine() const { return Text("scope") != "Device"; }
    bool IsBattery() const { return Text("type") == "Battery" && !Is("present", 0); }
};

std::vector<Supply> Supplies(const fs::path& folder) {
    std::vector<Supply> supplies;
    std::error_code failed;
    for (fs::directory_iterator it(folder, failed), end; !failed && it != end; it.increment(failed))
        if (Supply supply{it->path()}; supply.FeedsMachine())
            supplies.push_back(std::move(supply));
    std::sort(supplies.begin(), supplies.end(),
              [](const Supply& a, const Supply& b) { return a.folder < b.folder; });
    return supplies;
}

struct Rate {
    const char* left;
    const char* perHour;
};

constexpr Rate kRates[] = {{"energy_now", "power_now"}, {"charge_now", "current_now"}};

double MinutesLeft(const Supply& battery) {
    if (const double seconds = battery.Value("time_to_empty_now"); seconds > 0)
        return seconds / kSecondsPerMinute;
    for (const Rate& rate : kRates)
        if (const double used = std::abs(battery.Value(rate.perHour)); used > 0)
            return battery.Value(rate.left) / used * kMinutesPerHour;
    return 0;
}

void AddBattery(Power& power, const Supply& battery, int before) {
    const std::string status = battery.Text("status");
    const int percent = static_cast<int>(std::clamp(battery.Value("capacity"), 0.0, 100.0));
    power.battery = true;
    power.percent = (power.percent * before + percent) / (before + 1);
    if (status == "Charging")
        power.charging = Power::Charging::Yes;
    else if (status == "Full" && power.charging == Power::Charging::No)
        power.charging = Power::Charging::Full;
    if (status == "Discharging")
        power.minutes += static_cast<int>(std::clamp(MinutesLeft(battery), 0.0, kMostMinutes));
    if (before == 0) {
        power.temperature = static_cast<int>(std::clamp(battery.Value("temp"), -1e4, 1e4)) / 10;
        power.volts = battery.Value("voltage_now") / kMicro;
    }
}

} // namespace

Power ReadPower(const fs::path& folder) {
    Power power;
    bool mains = false;
    bool discharging = false;
    int batteries = 0;
    for (const Supply& supply : Supplies(folder)) {
        if (supply.IsBattery()) {
            discharging = discharging || supply.Text("status") == "Discharging";
            AddBattery(power, supply, batteries++);
        } else {
            mains = mains || supply.Is("online", 1);
        }
    }
    power.online = mains || !discharging;
    return power;
}

} // namespace player

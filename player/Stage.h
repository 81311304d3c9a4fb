// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

namespace player {

constexpr int kWidth = 480;
constexpr int kHeight = 272;

/// One bit for each button of the console, in the order of the names in api/Controls.cpp.
using Buttons = std::uint32_t;

/// Where the script's thread and the window's thread meet. The script runs in a thread of its own,
/// so that the window answers whatever the script does.
class Stage {
public:
    /// The script asks this often; what waits for longer than a moment must ask too.
    bool Stopping() const { return stopping_; }
    void Stop();
    /// Waits, but not beyond Stop. False if there was one.
    bool WaitUntil(std::chrono::steady_clock::time_point when);

    /// The script's side.
    void Show(const std::vector<std::uint32_t>& pixels);
    void WaitFrames(int count);
    void Print(const std::string& text);
    Buttons Held() const { return buttons_; }

    /// The window's side.
    void Hold(Buttons buttons) { buttons_ = buttons; }
    bool Take(std::vector<std::uint32_t>& pixels, std::uint64_t& seen);
    std::deque<std::string> Lines() const;

    /// Ends the script after so many frames, and doesn't wait for the clock.
    void LimitFrames(int count);
    void Hurry() { hurry_ = true; }

private:
    void CountFrame(int& counter, int by);

    std::atomic<bool> stopping_ = false;
    std::atomic<bool> hurry_ = false;
    std::atomic<Buttons> buttons_ = 0;
    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::vector<std::uint32_t> shown_ = std::vector<std::uint32_t>(kWidth * kHeight);
    std::uint64_t version_ = 1;
    std::deque<std::string> lines_;
    std::string line_;
    int flips_ = 0;
    int waits_ = 0;
    int limit_ = 0;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

} // namespace player

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

/// One bit for each button of the console, in the order of AllButtons in Pad.h.
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
    /// How long after the start so many frames more have begun, with `since` gone by.
    static std::chrono::nanoseconds EndOfFrames(std::chrono::nanoseconds since, int count);
    void Print(const std::string& text);
    /// The buttons held, and those pressed since the last time, however short.
    Buttons TakeButtons() { return held_ | pressed_.exchange(0); }
    void Finish();

    /// The window's side.
    void Hold(Buttons buttons);
    /// Waits a moment for a picture that hasn't been seen, or for the script to finish.
    bool Take(std::vector<std::uint32_t>& pixels, std::uint64_t& seen);
    /// False if it doesn't in time.
    bool WaitFinished(std::chrono::milliseconds most);
    bool Finished() const { return finished_; }
    std::deque<std::string> Lines() const;
    std::size_t Printed() const { return printed_; }

    /// Ends the script after so many frames; before it runs.
    void LimitFrames(int count) { limit_ = count; }
    /// Doesn't wait for the clock.
    void Hurry() { hurry_ = true; }

private:
    void CountFrames(int& counter, int by);

    std::atomic<bool> stopping_ = false;
    std::atomic<bool> hurry_ = false;
    std::atomic<bool> finished_ = false;
    std::atomic<Buttons> held_ = 0;
    std::atomic<Buttons> pressed_ = 0;
    mutable std::mutex mutex_;
    std::condition_variable wake_;   // of the script
    std::condition_variable notify_; // of the window
    std::vector<std::uint32_t> shown_ = std::vector<std::uint32_t>(std::size_t{kWidth} * kHeight);
    std::uint64_t version_ = 1;
    std::deque<std::string> lines_;
    std::string line_;
    std::atomic<std::size_t> printed_ = 0;
    int flips_ = 0;
    int waits_ = 0;
    int limit_ = 0; // of frames; 0 for none
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

} // namespace player

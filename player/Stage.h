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
using Buttons = uint32_t;

/// Where the script's thread and the window's thread meet. The script runs in a thread of its own,
/// so that the window answers whatever the script does.
class Stage {
public:
    /// The script asks this often; what waits for longer than a moment must ask too.
    bool Stopping() const { return m_stopping; }
    void Stop();
    /// Waits, but not beyond Stop. False if there was one.
    bool WaitUntil(std::chrono::steady_clock::time_point when);

    /// The script's side.
    void Show(const std::vector<uint32_t>& pixels);
    void WaitFrames(int count);
    /// How long after the start so many frames more have begun, with `since` gone by.
    static std::chrono::nanoseconds EndOfFrames(std::chrono::nanoseconds since, int count);
    void Print(const std::string& text);
    /// The buttons held, and those pressed since the last time, however short.
    Buttons TakeButtons() { return m_held | m_pressed.exchange(0); }
    void Finish();

    /// The window's side.
    void Hold(Buttons buttons);
    /// Waits a moment for a picture that hasn't been seen, or for the script to finish.
    bool Take(std::vector<uint32_t>& pixels, uint64_t& seen);
    /// False if it doesn't in time.
    bool WaitFinished(std::chrono::milliseconds most);
    bool Finished() const { return m_finished; }
    std::deque<std::string> Lines() const;
    size_t Printed() const { return m_printed; }

    /// Ends the script after so many frames; before it runs.
    void LimitFrames(int count) { m_limit = count; }
    /// Doesn't wait for the clock.
    void Hurry() { m_hurry = true; }

private:
    void CountFrames(int& counter, int by);

    std::atomic<bool> m_stopping = false;
    std::atomic<bool> m_hurry = false;
    std::atomic<bool> m_finished = false;
    std::atomic<Buttons> m_held = 0;
    std::atomic<Buttons> m_pressed = 0;
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;   // of the script
    std::condition_variable m_notify; // of the window
    std::vector<uint32_t> m_shown = std::vector<uint32_t>(size_t{kWidth} * kHeight);
    uint64_t m_version = 1;
    std::deque<std::string> m_lines;
    std::string m_line;
    std::atomic<size_t> m_printed = 0;
    int m_flips = 0;
    int m_waits = 0;
    int m_limit = 0; // of frames; 0 for none
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

} // namespace player

// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Stage.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>

namespace player {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kFramesPerSecond = 60;
constexpr int kMostFrames = std::numeric_limits<int>::max();
constexpr std::chrono::milliseconds kMoment{8};
constexpr size_t kLines = 400;
constexpr size_t kLongestLine = 400;

} // namespace

void Stage::Stop() {
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
}

bool Stage::WaitUntil(Clock::time_point when) {
    std::unique_lock lock(m_mutex);
    m_wake.wait_until(lock, when, [this] { return m_stopping.load(); });
    return !m_stopping;
}

void Stage::Show(const std::vector<uint32_t>& pixels) {
    {
        const std::lock_guard lock(m_mutex);
        if (m_stopping)
            return;
        if (m_shown != pixels) {
            m_shown = pixels;
            ++m_version;
        }
    }
    m_notify.notify_all();
    CountFrames(m_flips, 1);
}

// The first whole nanosecond of the frame, so that the next question finds it begun.
std::chrono::nanoseconds Stage::EndOfFrames(std::chrono::nanoseconds since, int count) {
    constexpr int64_t kSecond = 1'000'000'000;
    const int64_t frame = since.count() * kFramesPerSecond / kSecond + count;
    return std::chrono::nanoseconds(frame * kSecond / kFramesPerSecond + 1);
}

void Stage::WaitFrames(int count) {
    if (!m_hurry)
        WaitUntil(m_start + EndOfFrames(Clock::now() - m_start, count));
    CountFrames(m_waits, count);
}

// Waits count too, for a script that shows nothing; one that does may wait before it shows.
void Stage::CountFrames(int& counter, int by) {
    counter += std::min(by, kMostFrames - counter);
    if (m_limit > 0 && (m_flips >= m_limit || m_waits > m_limit))
        Stop();
}

void Stage::Finish() {
    {
        const std::lock_guard lock(m_mutex);
        m_finished = true;
    }
    m_notify.notify_all();
}

void Stage::Hold(Buttons buttons) {
    m_pressed |= buttons & ~m_held;
    m_held = buttons;
}

void Stage::Print(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
    const std::lock_guard lock(m_mutex);
    for (const char c : text) {
        if (c != '\n' && m_line.size() < kLongestLine) {
            m_line += c;
        } else if (c == '\n') {
            ++m_printed;
            m_lines.push_back(std::move(m_line));
            m_line.clear();
            if (m_lines.size() > kLines)
                m_lines.pop_front();
        }
    }
}

bool Stage::Take(std::vector<uint32_t>& pixels, uint64_t& seen) {
    std::unique_lock lock(m_mutex);
    m_notify.wait_for(lock, kMoment, [&] { return seen != m_version || m_finished; });
    if (seen == m_version)
        return false;
    pixels = m_shown;
    seen = m_version;
    return true;
}

bool Stage::WaitFinished(std::chrono::milliseconds most) {
    std::unique_lock lock(m_mutex);
    return m_notify.wait_for(lock, most, [this] { return m_finished.load(); });
}

std::deque<std::string> Stage::Lines() const {
    const std::lock_guard lock(m_mutex);
    return m_lines;
}

} // namespace player

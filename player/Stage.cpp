// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Stage.h"

#include <algorithm>
#include <cstdio>
#include <limits>

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
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_all();
}

bool Stage::WaitUntil(Clock::time_point when) {
    std::unique_lock lock(mutex_);
    wake_.wait_until(lock, when, [this] { return stopping_.load(); });
    return !stopping_;
}

void Stage::Show(const std::vector<std::uint32_t>& pixels) {
    {
        const std::lock_guard lock(mutex_);
        if (stopping_)
            return;
        if (shown_ != pixels) {
            shown_ = pixels;
            ++version_;
        }
    }
    notify_.notify_all();
    CountFrames(flips_, 1);
}

// The first whole nanosecond of the frame, so that the next question finds it begun.
std::chrono::nanoseconds Stage::EndOfFrames(std::chrono::nanoseconds since, int count) {
    constexpr std::int64_t kSecond = 1'000'000'000;
    const std::int64_t frame = since.count() * kFramesPerSecond / kSecond + count;
    return std::chrono::nanoseconds(frame * kSecond / kFramesPerSecond + 1);
}

void Stage::WaitFrames(int count) {
    if (!hurry_)
        WaitUntil(start_ + EndOfFrames(Clock::now() - start_, count));
    CountFrames(waits_, count);
}

// Waits count too, for a script that shows nothing; one that does may wait before it shows.
void Stage::CountFrames(int& counter, int by) {
    counter += std::min(by, kMostFrames - counter);
    if (limit_ > 0 && (flips_ >= limit_ || waits_ > limit_))
        Stop();
}

void Stage::Finish() {
    {
        const std::lock_guard lock(mutex_);
        finished_ = true;
    }
    notify_.notify_all();
}

void Stage::Hold(Buttons buttons) {
    pressed_ |= buttons & ~held_;
    held_ = buttons;
}

void Stage::Print(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
    const std::lock_guard lock(mutex_);
    for (const char c : text) {
        if (c != '\n' && line_.size() < kLongestLine) {
            line_ += c;
        } else if (c == '\n') {
            ++printed_;
            lines_.push_back(std::move(line_));
            line_.clear();
            if (lines_.size() > kLines)
                lines_.pop_front();
        }
    }
}

bool Stage::Take(std::vector<std::uint32_t>& pixels, std::uint64_t& seen) {
    std::unique_lock lock(mutex_);
    notify_.wait_for(lock, kMoment, [&] { return seen != version_ || finished_; });
    if (seen == version_)
        return false;
    pixels = shown_;
    seen = version_;
    return true;
}

bool Stage::WaitFinished(std::chrono::milliseconds most) {
    std::unique_lock lock(mutex_);
    return notify_.wait_for(lock, most, [this] { return finished_.load(); });
}

std::deque<std::string> Stage::Lines() const {
    const std::lock_guard lock(mutex_);
    return lines_;
}

} // namespace player

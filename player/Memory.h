// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

namespace player {

/// Counts what the script takes: Lua's own memory, pictures, sounds. Only the script's thread uses
/// it.
class Memory {
public:
    explicit Memory(std::size_t limit) : limit_(limit) {}

    std::size_t Limit() const { return limit_; }
    std::size_t Free() const { return used_ < limit_ ? limit_ - used_ : 0; }
    bool Over() const { return used_ > limit_; }
    bool Fits(std::size_t bytes) const { return bytes <= Free(); }
    void Add(std::size_t bytes) { used_ += bytes; }
    void Remove(std::size_t bytes) { used_ -= bytes; }

    /// Functions of C++ that are running. While there are any, Lua may go over the limit, because
    /// its error would jump over their destructors; they fail when they return.
    int native = 0;

private:
    std::size_t limit_;
    std::size_t used_ = 0;
};

/// A part of the memory, counted for as long as this lives. LuaHost.h: Reserve makes one.
class Share {
public:
    Share() = default;
    Share(Memory& memory, std::size_t bytes) : memory_(&memory), bytes_(bytes) {
        memory.Add(bytes);
    }
    Share(Share&& other) noexcept
        : memory_(std::exchange(other.memory_, nullptr)), bytes_(other.bytes_) {}
    Share& operator=(Share&& other) noexcept {
        std::swap(memory_, other.memory_);
        std::swap(bytes_, other.bytes_);
        return *this;
    }
    ~Share() {
        if (memory_)
            memory_->Remove(bytes_);
    }

private:
    Memory* memory_ = nullptr;
    std::size_t bytes_ = 0;
};

} // namespace player

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <utility>

namespace player {

/// Counts what the script takes: Lua's own memory, pictures, sounds. Only the script's thread uses
/// it.
class Memory {
public:
    explicit Memory(size_t limit) : m_limit(limit) {}

    size_t Limit() const { return m_limit; }
    size_t Free() const { return m_used < m_limit ? m_limit - m_used : 0; }
    bool Over() const { return m_used > m_limit; }
    bool Fits(size_t bytes) const { return bytes <= Free(); }
    void Add(size_t bytes) { m_used += bytes; }
    void Remove(size_t bytes) { m_used -= bytes; }

    /// Functions of C++ that are running. While there are any, Lua may go over the limit, because
    /// its error would jump over their destructors; they fail when they return.
    int native = 0;

private:
    size_t m_limit;
    size_t m_used = 0;
};

/// A part of the memory, counted for as long as this lives. LuaHost.h: Reserve makes one.
class Share {
public:
    Share() = default;
    Share(Memory& memory, size_t bytes) : m_memory(&memory), m_bytes(bytes) { memory.Add(bytes); }
    Share(Share&& other) noexcept
        : m_memory(std::exchange(other.m_memory, nullptr)), m_bytes(other.m_bytes) {}
    Share& operator=(Share&& other) noexcept {
        std::swap(m_memory, other.m_memory);
        std::swap(m_bytes, other.m_bytes);
        return *this;
    }
    ~Share() {
        if (m_memory)
            m_memory->Remove(m_bytes);
    }

private:
    Memory* m_memory = nullptr;
    size_t m_bytes = 0;
};

} // namespace player

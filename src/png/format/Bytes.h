// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

namespace png {

// Pixels and codes are handled several bytes at a time.
static_assert(std::endian::native == std::endian::little);

/// A growable array of bytes for buffers of many megabytes. Unlike a vector it leaves new bytes
/// unset and grows by no more than it is asked for. Throws std::bad_alloc without enough memory.
class Bytes {
public:
    Bytes() = default;
    explicit Bytes(size_t size) { Resize(size); }
    explicit Bytes(std::span<const uint8_t> bytes) { Append(bytes); }
    Bytes(Bytes&& other) noexcept { *this = std::move(other); }
    Bytes& operator=(Bytes&& other) noexcept;

    /// The first bytes stay, up to the smaller of both sizes; more ones are unset.
    void Resize(size_t size);
    /// Takes memory for that many bytes; the size stays.
    void Reserve(size_t capacity);
    /// Gives back what lies behind the last byte; a large block isn't copied for it.
    void Trim() { Reallocate(m_start + m_size); }
    void Append(std::span<const uint8_t> bytes);
    /// Takes the first bytes away, at most as many as there are.
    void DropFront(size_t count);

    size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    uint8_t* data() { return m_memory.get() + m_start; }
    const uint8_t* data() const { return m_memory.get() + m_start; }
    uint8_t* begin() { return data(); }
    uint8_t* end() { return data() + m_size; }
    const uint8_t* begin() const { return data(); }
    const uint8_t* end() const { return data() + m_size; }
    std::span<const uint8_t> View() const { return {data(), m_size}; }
    uint8_t& operator[](size_t index) { return data()[index]; }
    const uint8_t& operator[](size_t index) const { return data()[index]; }

private:
    struct Free {
        void operator()(uint8_t* memory) const;
    };

    void Reallocate(size_t capacity);

    std::unique_ptr<uint8_t[], Free> m_memory;
    size_t m_capacity = 0;
    size_t m_start = 0;
    size_t m_size = 0;
};

} // namespace png

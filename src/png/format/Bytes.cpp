// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/format/Bytes.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

namespace png {

void Bytes::Free::operator()(uint8_t* memory) const {
    std::free(memory);
}

Bytes& Bytes::operator=(Bytes&& other) noexcept {
    m_memory = std::move(other.m_memory);
    m_capacity = std::exchange(other.m_capacity, 0);
    m_start = std::exchange(other.m_start, 0);
    m_size = std::exchange(other.m_size, 0);
    return *this;
}

void Bytes::Resize(size_t size) {
    Reserve(size);
    m_size = size;
}

void Bytes::Reserve(size_t capacity) {
    if (m_start + capacity > m_capacity)
        Reallocate(m_start + capacity);
}

void Bytes::Reallocate(size_t capacity) {
    if (capacity == 0) {
        *this = Bytes();
        return;
    }
    auto* memory = static_cast<uint8_t*>(std::realloc(m_memory.get(), capacity));
    if (memory == nullptr)
        throw std::bad_alloc();
    static_cast<void>(m_memory.release());
    m_memory.reset(memory);
    m_capacity = capacity;
}

void Bytes::Append(std::span<const uint8_t> bytes) {
    const size_t old = m_size;
    Resize(old + bytes.size());
    std::copy(bytes.begin(), bytes.end(), data() + old);
}

void Bytes::DropFront(size_t count) {
    count = std::min(count, m_size);
    m_start += count;
    m_size -= count;
}

} // namespace png

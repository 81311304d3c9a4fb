// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/Window.h"

#include <algorithm>
#include <utility>

namespace png {

void Window::Open(int32_t capacity) {
    m_capacity = capacity;
    OutStream = Bytes(static_cast<size_t>(m_capacity) + 1);
    OutPos = 0;
}

Bytes Window::Close() {
    OutStream.Resize(static_cast<size_t>(OutPos));
    OutStream.Trim();
    return std::move(OutStream);
}

bool Window::CopyMatch(int32_t length, int32_t distance) {
    for (; length > 0; --length) {
        if (OutPos > m_capacity)
            return Cut();
        OutStream[static_cast<size_t>(OutPos)] = OutStream[static_cast<size_t>(OutPos - distance)];
        ++OutPos;
    }
    return true;
}

void Window::Append(std::span<const uint8_t> bytes) {
    std::ranges::copy(bytes, OutStream.data() + OutPos);
    OutPos += static_cast<int64_t>(bytes.size());
}

bool Window::Cut() {
    OutPos = m_capacity;
    return false;
}

} // namespace png

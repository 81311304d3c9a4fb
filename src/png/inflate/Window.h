// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/format/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace png {

/// All bytes that a stream has put out, into which its distances point back. A capacity is set in
/// advance; the last byte of all may be one more.
class Window {
public:
    /// Begins empty.
    void Open(int32_t capacity);
    /// Ends and gives the bytes away.
    Bytes Close();

    int64_t Size() const { return OutPos; }
    /// How many more the capacity allows; negative with the one byte more.
    int64_t Room() const { return m_capacity - OutPos; }
    /// False if there is no place for it, and the bytes are cut at the capacity then.
    bool Put(uint8_t byte) {
        if (OutPos > m_capacity)
            return Cut();
        OutStream[static_cast<size_t>(OutPos++)] = byte;
        return true;
    }
    /// Repeats what stands `distance` bytes back, at most as many as there are. Fails as Put.
    bool CopyMatch(int32_t length, int32_t distance);
    /// There must be room for them but for one.
    void Append(std::span<const uint8_t> bytes);

    /// The whole buffer, for who writes to it directly and then says how many bytes there are.
    std::span<uint8_t> Buffer() { return {OutStream.data(), OutStream.size()}; }
    void Advance(size_t size) { OutPos = static_cast<int64_t>(size); }

private:
    bool Cut();

    Bytes OutStream; ///< indices 0 to m_capacity
    int64_t OutPos = 0;
    int64_t m_capacity = 0;
};

} // namespace png

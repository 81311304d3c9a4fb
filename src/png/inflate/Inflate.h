// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/format/Bytes.h"
#include "png/inflate/Blocks.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <utility>

namespace png {

/// Shows a message to the user.
using MessageHook = std::function<void(const std::string& text)>;

/// Turns a raw DEFLATE stream (RFC 1951) into bytes, from one whole buffer into another. It differs
/// from the standard: every set of code lengths must be complete; distance symbols 30 and 31 are
/// those of Deflate64; and the size of the output is fixed in advance.
class Inflater {
public:
    /// What ExpectedSize is raised by, and the most that it may be: the output has a byte more.
    static constexpr int32_t kSpare = 100;
    static constexpr int32_t kMostExpected = std::numeric_limits<int32_t>::max() - kSpare - 1;
    static_assert(int64_t{kMostExpected} + kSpare < std::numeric_limits<int32_t>::max());

    /// `Data` holds the stream and receives the bytes. ExpectedSize, at least -kSpare, is raised by
    /// kSpare and is the most that is put out; what comes beyond is left out. WideLengths gives
    /// length symbol 285 its Deflate64 meaning. Result: 0 done, -1 the stream is damaged or ends
    /// early and Data holds what came before, -2 the length of a stored block is contradicted. If
    /// the codes of a block can't be built, the message is shown and Data keeps the stream.
    void Inflate(Bytes& Data, int32_t& ExpectedSize, bool WideLengths, int32_t& Result);

    void MessageBox(MessageHook hook) { m_message = std::move(hook); }
    /// Which loop decodes as far as it can: the plain one, the accelerated one for all machines, or
    /// the fastest that this machine has. The outcome is the same.
    using Loop = Blocks::Loop;
    void Use(Loop loop) { m_blocks.Use(loop); }

private:
    Blocks m_blocks;
    MessageHook m_message;
};

} // namespace png

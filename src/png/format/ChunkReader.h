// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/format/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <string>

namespace png {

/// Integers as they lie in a file, the high byte first.
int32_t SwapLong(const uint8_t* bytes);
int16_t SwapWord(const uint8_t* bytes);
/// The word's bits without a sign.
int32_t WordToLong(int16_t word);

/// The index of the last byte before the first zero byte at or behind `from`; without one, that of
/// the last byte. -1 stands before the first.
ptrdiff_t FindNul(std::span<const uint8_t> bytes, size_t from);

/// Walks through the chunks of a PNG file (PNG standard, 5,
/// https://www.w3.org/TR/png-3/#5DataRep). A file that can't be opened or isn't a regular one reads
/// as an empty one. No checksum is looked at.
class ChunkReader {
public:
    explicit ChunkReader(const std::string& filename);

    /// True if the eight bytes of the signature come next.
    bool IsPngSignature();
    /// Reads the next chunk's head; its data must be read or skipped before the next one. False if
    /// not a byte follows the data, or if the length is negative.
    bool NextChunk();
    const std::string& Type() const { return m_type; }
    int32_t Length() const { return m_length; }
    /// The whole file's size, in bytes.
    int64_t FileLength() const { return m_fileLength; }

    /// Append the data of the chunk to a buffer, or pass over them. False if the file has become
    /// shorter meanwhile.
    bool ReadData(Bytes& buffer);
    bool SkipData();

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    bool Read(std::span<uint8_t> bytes);
    bool Skip(int64_t count);

    std::unique_ptr<std::FILE, Close> m_file;
    int64_t m_fileLength = 0;
    int64_t m_position = 0;
    std::string m_type;
    int32_t m_length = 0;
};

} // namespace png

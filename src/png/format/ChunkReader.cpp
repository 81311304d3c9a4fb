// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/format/ChunkReader.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

namespace png {
namespace {

constexpr std::array<uint8_t, 8> kSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr size_t kReadAhead = 1 << 16;
constexpr int64_t kChecksum = 4; // bytes behind a chunk's data

} // namespace

int32_t SwapLong(const uint8_t* bytes) {
    return static_cast<int32_t>(uint32_t{bytes[0]} << 24 | uint32_t{bytes[1]} << 16 |
                                uint32_t{bytes[2]} << 8 | bytes[3]);
}

int16_t SwapWord(const uint8_t* bytes) {
    return static_cast<int16_t>(bytes[0] << 8 | bytes[1]);
}

int32_t WordToLong(int16_t word) {
    return static_cast<uint16_t>(word);
}

ptrdiff_t FindNul(std::span<const uint8_t> bytes, size_t from) {
    const auto start = bytes.begin() + static_cast<ptrdiff_t>(std::min(from, bytes.size()));
    return std::find(start, bytes.end(), uint8_t{0}) - bytes.begin() - 1;
}

ChunkReader::ChunkReader(const std::string& filename) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(filename, error))
        return; // a pipe would hold the program up
    const auto length = std::filesystem::file_size(filename, error);
    if (error)
        return;
    m_file.reset(std::fopen(filename.c_str(), "rb"));
    if (m_file == nullptr)
        return;
    m_fileLength = static_cast<int64_t>(length);
    static_cast<void>(std::setvbuf(m_file.get(), nullptr, _IOFBF, kReadAhead));
}

bool ChunkReader::IsPngSignature() {
    std::array<uint8_t, kSignature.size()> bytes{};
    return Read(bytes) && bytes == kSignature;
}

bool ChunkReader::NextChunk() {
    std::array<uint8_t, 8> head{};
    if (!Read(head))
        return false;
    m_length = SwapLong(head.data());
    m_type.assign(head.begin() + 4, head.end());
    return m_length >= 0 && m_position + 1 + m_length <= m_fileLength;
}

bool ChunkReader::ReadData(Bytes& buffer) {
    const size_t old = buffer.size();
    const auto length = static_cast<size_t>(m_length);
    buffer.Resize(old + length);
    if (!Read(std::span(buffer.data() + old, length)))
        return false;
    // The last checksum of a file needn't be whole.
    return Skip(std::min(kChecksum, m_fileLength - m_position));
}

bool ChunkReader::SkipData() {
    return Skip(std::min(m_length + kChecksum, m_fileLength - m_position));
}

bool ChunkReader::Read(std::span<uint8_t> bytes) {
    if (m_file == nullptr ||
        std::fread(bytes.data(), 1, bytes.size(), m_file.get()) != bytes.size())
        return false;
    m_position += static_cast<int64_t>(bytes.size());
    return true;
}

bool ChunkReader::Skip(int64_t count) {
    std::array<uint8_t, kChecksum> near{};
    if (count <= kChecksum) // a seek would throw away what has been read ahead
        return Read(std::span(near).first(static_cast<size_t>(count)));
    m_position += count;
    return std::fseek(m_file.get(), static_cast<long>(count), SEEK_CUR) == 0;
}

} // namespace png

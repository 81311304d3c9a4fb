// SPDX-License-Identifier: GPL-3.0-or-later
// All loops of Inflate must agree on every stream, and with zlib on those that it accepts. The
// first two bytes say how much room there is.
#include "png/DeflateStream.h"

#include <cstdlib>
#include <zlib.h>

namespace {

// What zlib makes of the stream; none if it doesn't accept the whole of it.
std::optional<std::string> ByZlib(std::string& stream) {
    z_stream zlib{};
    std::string data(1 << 18, '\0');
    zlib.next_in = reinterpret_cast<Bytef*>(stream.data());
    zlib.avail_in = uInt(stream.size());
    zlib.next_out = reinterpret_cast<Bytef*>(data.data());
    zlib.avail_out = uInt(data.size());
    if (inflateInit2(&zlib, -15) != Z_OK)
        std::abort();
    const bool whole = inflate(&zlib, Z_FINISH) == Z_STREAM_END;
    inflateEnd(&zlib);
    return whole ? std::optional(data.substr(0, zlib.total_out)) : std::nullopt;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    if (size < 2)
        return 0;
    const int32_t expected = data[0] * 1024 + data[1] - 100;
    std::string stream(reinterpret_cast<const char*>(data) + 2, size - 2);
    const std::string checksum(4, '\0'); // stands behind it in a file
    const auto ours = recipes::Loops().Decoded(stream + checksum, expected);
    if (!ours)
        std::abort();
    const auto theirs = ByZlib(stream);
    if (!theirs || !ours->message.empty())
        return 0; // incomplete codes are refused
    const auto room = size_t(expected + 100);
    if (theirs->size() <= room ? *ours != recipes::Outcome{*theirs, 0, ""}
                               : !theirs->starts_with(ours->data))
        std::abort();
    return 0;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// All loops of Inflate must agree on every stream, and with zlib on those that it accepts. The
// first two bytes say how much room there is.
#include "png/Inflate.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>
#include <zlib.h>

namespace {

struct Outcome {
    std::string data;
    int32_t result = 0;
    bool message = false;
    bool operator==(const Outcome&) const = default;
};

Outcome Decode(png::Inflater::Loop loop, std::span<const uint8_t> stream, int32_t expected) {
    Outcome outcome;
    png::Inflater inflater;
    inflater.Use(loop);
    inflater.MessageBox([&](const std::string&) { outcome.message = true; });
    png::Bytes data(stream);
    inflater.Inflate(data, expected, false, outcome.result);
    outcome.data.assign(data.begin(), data.end());
    return outcome;
}

// What zlib makes of the stream; false if it doesn't accept the whole of it.
bool ByZlib(std::span<const uint8_t> stream, std::string& data) {
    z_stream zlib{};
    if (inflateInit2(&zlib, -15) != Z_OK)
        std::abort();
    data.resize(1 << 18);
    zlib.next_in = const_cast<Bytef*>(stream.data());
    zlib.avail_in = static_cast<uInt>(stream.size());
    zlib.next_out = reinterpret_cast<Bytef*>(data.data());
    zlib.avail_out = static_cast<uInt>(data.size());
    const bool whole = inflate(&zlib, Z_FINISH) == Z_STREAM_END;
    data.resize(zlib.total_out);
    inflateEnd(&zlib);
    return whole;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    if (size < 2)
        return 0;
    const int32_t expected = data[0] * 1024 + data[1] - 100;
    std::vector<uint8_t> stream(data + 2, data + size);
    stream.resize(stream.size() + 4); // as in a file a checksum stands behind it
    using Loop = png::Inflater::Loop;
    const Outcome fast = Decode(Loop::Fastest, stream, expected);
    if (fast != Decode(Loop::Plain, stream, expected) ||
        fast != Decode(Loop::Portable, stream, expected))
        std::abort();
    std::string reference;
    if (!ByZlib(std::span(stream).first(size - 2), reference) || fast.message)
        return 0; // incomplete codes are refused
    const auto room = static_cast<size_t>(expected + 100);
    if (reference.size() <= room && (fast.result != 0 || fast.data != reference))
        std::abort();
    if (reference.compare(0, fast.data.size(), fast.data) != 0)
        std::abort();
    return 0;
}

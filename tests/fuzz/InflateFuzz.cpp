// SPDX-License-Identifier: GPL-3.0-or-later
// All loops of Inflate must agree on every stream, and with zlib on as many bytes as both put out.
// The first two bytes say how much room there is.
#include "png/DeflateStream.h"

#include <cstdlib>
#include <zlib.h>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    if (size < 2)
        return 0;
    const int32_t expected = data[0] * 1024 + data[1] - 100;
    std::string stream(reinterpret_cast<const char*>(data) + 2, size - 2);
    stream += std::string(4, '\0'); // as in a file a checksum stands behind it
    const auto ours = recipes::Loops().Decoded(stream, expected);
    if (!ours)
        std::abort();
    const auto& [bytes, result, message] = *ours;
    if (!message.empty())
        return 0; // incomplete codes are refused
    stream.insert(0, "\x78\1");
    std::string theirs(1 << 18, '\0');
    uLong length = uLong(theirs.size());
    uncompress(reinterpret_cast<Bytef*>(theirs.data()), &length,
               reinterpret_cast<const Bytef*>(stream.data()), uLong(stream.size()));
    const size_t both = std::min(size_t(length), bytes.size());
    if (theirs.compare(0, both, bytes, 0, both) != 0)
        std::abort();
    return 0;
}

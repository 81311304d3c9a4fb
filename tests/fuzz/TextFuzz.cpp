// SPDX-License-Identifier: GPL-3.0-or-later
// A text file of any bytes is refused, or comes back as the same bytes; and what is encoded from
// any text reads back as that text.
#include "platform/base/Failure.h"
#include "platform/text/TextEncoding.h"

#include <cstdlib>

using namespace platform;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        const DecodedText decoded = DecodeText(bytes);
        if (EncodeText(decoded.utf8, decoded.encoding).bytes != bytes)
            std::abort();
        const EncodedText other = EncodeText(decoded.utf8, TextEncoding::CodePage);
        const bool marked = decoded.utf8.startsWith("\xEF\xBB\xBF"); // would be taken for a mark
        if (!marked && DecodeText(other.bytes).utf8 != decoded.utf8)
            std::abort();
    } catch (const Failure&) {
    }
    return 0;
}

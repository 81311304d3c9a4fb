// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/LineEnds.h"

#include <algorithm>

namespace core {

LineEnd MainLineEnd(std::string_view text) {
    constexpr size_t kSample = 1 << 16;
    size_t crlf = 0;
    size_t cr = 0;
    size_t lf = 0;
    for (size_t i = 0; i < std::min(text.size(), kSample); ++i) {
        const bool beforeLf = i + 1 < text.size() && text[i + 1] == '\n';
        const bool afterCr = i > 0 && text[i - 1] == '\r';
        crlf += text[i] == '\r' && beforeLf;
        cr += text[i] == '\r' && !beforeLf;
        lf += text[i] == '\n' && !afterCr;
    }
    if (crlf >= std::max(cr, lf))
        return LineEnd::CrLf;
    return lf >= cr ? LineEnd::Lf : LineEnd::Cr;
}

} // namespace core

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

std::string WithLineEnds(std::string_view text, LineEnd end) {
    const std::string_view written = end == LineEnd::CrLf ? "\r\n"
                                     : end == LineEnd::Lf ? "\n"
                                                          : "\r";
    std::string converted;
    converted.reserve(text.size());
    while (!text.empty()) {
        const size_t line = std::min(text.find_first_of("\r\n"), text.size());
        converted += text.substr(0, line);
        text.remove_prefix(line);
        if (text.empty())
            break;
        converted += written;
        text.remove_prefix(text.substr(0, 2) == "\r\n" ? 2 : 1);
    }
    return converted;
}

} // namespace core

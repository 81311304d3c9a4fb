// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Encoding.h"

#include "core/Windows1252.h"

#include <bit>
#include <optional>
#include <utility>

namespace player {
namespace {

std::optional<std::u32string> FromUtf8(std::string_view text) {
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    std::u32string result;
    for (size_t i = 0; i < text.size();) {
        const auto first = static_cast<unsigned char>(text[i++]);
        const auto length = static_cast<size_t>(std::countl_one(first));
        if (length == 1 || length > 4 || text.size() - i + 1 < length)
            return std::nullopt;
        char32_t c = first & (0x7FU >> length);
        for (size_t j = 1; j < length; ++j) {
            const auto next = static_cast<unsigned char>(text[i++]);
            if (next >> 6 != 2)
                return std::nullopt;
            c = c << 6 | (next & 0x3F);
        }
        if (c < kLeast[length] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000))
            return std::nullopt;
        result += c;
    }
    return result;
}

std::u32string FromWindows(std::string_view text) {
    std::u32string result;
    for (const char c : text)
        result += core::FromWindows1252(static_cast<unsigned char>(c));
    return result;
}

void Append(std::string& text, char32_t c) {
    const auto put = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80)
        return put(c);
    const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    put((0xFF00U >> (more + 1) & 0xFF) | c >> 6 * more);
    for (int i = more - 1; i >= 0; --i)
        put(0x80 | (c >> 6 * i & 0x3F));
}

} // namespace

std::u32string Decode(std::string_view text) {
    auto utf8 = FromUtf8(text);
    return utf8 ? std::move(*utf8) : FromWindows(text);
}

std::string ToUtf8(std::string_view text) {
    std::string result;
    for (const char32_t c : Decode(text))
        Append(result, c);
    return result;
}

} // namespace player

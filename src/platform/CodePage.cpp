// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/CodePage.h"

#include <array>

namespace platform {
namespace {

// Characters of the bytes 80 to 9F; all other bytes are Latin-1.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool IsUpperControl(char16_t value) {
    return value >= 0x80 && value < 0xA0;
}

// The byte for a character, or -1.
int ByteFor(char16_t character) {
    if (character < 0x100 && !IsUpperControl(character))
        return character;
    for (size_t i = 0; i < kUpperControls.size(); ++i) {
        if (kUpperControls[i] == character)
            return static_cast<int>(0x80 + i);
    }
    return -1;
}

} // namespace

QString FromCodePage(QByteArrayView bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text) {
        if (IsUpperControl(c.unicode()))
            c = QChar(kUpperControls[c.unicode() - 0x80U]);
    }
    return text;
}

std::optional<QByteArray> ToCodePage(QStringView text) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    for (const QChar c : text) {
        const int byte = ByteFor(c.unicode());
        if (byte < 0)
            return std::nullopt;
        *out++ = static_cast<char>(byte);
    }
    return bytes;
}

QByteArray ToCodePageLossy(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        if (c.isLowSurrogate())
            continue; // its high half has become the "?"
        const int byte = ByteFor(c.unicode());
        bytes.append(byte < 0 ? '?' : static_cast<char>(byte));
    }
    return bytes;
}

} // namespace platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/CodePage.h"

#include <algorithm>
#include <array>
#include <cstring>

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

constexpr int kSequenceRoom = 4;

// A byte's character in UTF-8.
struct Sequence {
    char bytes[kSequenceRoom];
    qsizetype length;
};

std::array<Sequence, 256> Utf8Sequences() {
    std::array<Sequence, 256> table{};
    for (size_t i = 0; i < table.size(); ++i) {
        const char byte = static_cast<char>(i);
        const QByteArray utf8 = FromCodePage(QByteArrayView(&byte, 1)).toUtf8();
        std::copy(utf8.begin(), utf8.end(), table[i].bytes);
        table[i].length = utf8.size();
    }
    return table;
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

QByteArray CodePageToUtf8(QByteArrayView bytes) {
    static const std::array<Sequence, 256> table = Utf8Sequences();
    const auto isUpper = [](char c) { return (static_cast<unsigned char>(c) & 0x80U) != 0; };
    const qsizetype upper = std::count_if(bytes.begin(), bytes.end(), isUpper);
    QByteArray utf8(bytes.size() + 2 * upper + kSequenceRoom, Qt::Uninitialized);
    char* out = utf8.data();
    for (const char c : bytes) {
        const Sequence& sequence = table[static_cast<unsigned char>(c)];
        std::memcpy(out, sequence.bytes, kSequenceRoom); // a fixed size is one move
        out += sequence.length;
    }
    utf8.truncate(out - utf8.data());
    return utf8;
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

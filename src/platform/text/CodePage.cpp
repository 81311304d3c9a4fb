// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/CodePage.h"

#include "core/Windows1252.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace platform {
namespace {

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
    QString text(bytes.size(), Qt::Uninitialized);
    std::ranges::transform(bytes, text.begin(), [](char byte) {
        return QChar(core::FromWindows1252(static_cast<unsigned char>(byte)));
    });
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
        std::memcpy(out, sequence.bytes, kSequenceRoom); // a constant size: one move
        out += sequence.length;
    }
    utf8.truncate(out - utf8.data());
    return utf8;
}

std::optional<QByteArray> ToCodePage(QStringView text) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    for (const QChar c : text) {
        const int byte = core::ToWindows1252(c.unicode());
        if (byte < 0)
            return std::nullopt;
        *out++ = static_cast<char>(byte);
    }
    return bytes;
}

qsizetype FirstOutsideCodePage(QStringView text) {
    const auto found = std::find_if(text.begin(), text.end(),
                                    [](QChar c) { return core::ToWindows1252(c.unicode()) < 0; });
    return found == text.end() ? -1 : found - text.begin();
}

QByteArray ToCodePageLossy(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        if (c.isLowSurrogate())
            continue; // its high surrogate has become the "?"
        const int byte = core::ToWindows1252(c.unicode());
        bytes.append(byte < 0 ? '?' : static_cast<char>(byte));
    }
    return bytes;
}

} // namespace platform

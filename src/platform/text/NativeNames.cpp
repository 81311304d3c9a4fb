// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/NativeNames.h"

#include "platform/text/TextEncoding.h"

#include <algorithm>

namespace platform {
namespace {

constexpr char16_t kTravelBase = 0xF000;

bool Travels(unsigned char code) {
    return (code > 0 && code < 0x20) || code >= 0x80 ||
           QByteArrayView(R"(\:*?"<>|)").contains(static_cast<char>(code));
}

// The code of a character that travels as U+F000 + code; 0 for any other.
unsigned char TravelCode(QChar c) {
    const int code = c.unicode() - kTravelBase;
    const bool inRange = code > 0 && code <= 0xFF;
    return inRange && Travels(static_cast<unsigned char>(code)) ? static_cast<unsigned char>(code)
                                                                : 0;
}

// Length in bytes of the first character; 0 if it isn't valid UTF-8.
qsizetype CharacterLength(QByteArrayView bytes) {
    for (qsizetype length = 1; length <= std::min<qsizetype>(4, bytes.size()); ++length) {
        if (bytes.first(length).isValidUtf8())
            return length;
    }
    return 0;
}

} // namespace

QString FromNativeName(QByteArrayView name) {
    QString text;
    const auto travel = [&](QByteArrayView bytes) {
        for (const char byte : bytes)
            text += QChar(kTravelBase + static_cast<unsigned char>(byte));
    };
    while (!name.isEmpty()) {
        const qsizetype length = std::max<qsizetype>(1, CharacterLength(name));
        const QByteArrayView bytes = name.first(length);
        const QString character = FromUtf8(bytes);
        const bool plain = bytes.isValidUtf8() && TravelCode(character.front()) == 0 &&
                           (length > 1 || !Travels(static_cast<unsigned char>(bytes.front())));
        if (plain)
            text += character;
        else
            travel(bytes);
        name = name.sliced(length);
    }
    return text;
}

std::string ToNativeName(const QString& name) {
    QByteArray bytes;
    qsizetype start = 0;
    for (qsizetype i = 0; i < name.size(); ++i) {
        const unsigned char code = TravelCode(name.at(i));
        if (code == 0)
            continue;
        bytes += QStringView(name).sliced(start, i - start).toUtf8();
        bytes += static_cast<char>(code);
        start = i + 1;
    }
    bytes += QStringView(name).sliced(start).toUtf8();
    return bytes.toStdString();
}

QString DisplayText(const QString& text) {
    QString shown = text;
    for (QChar& c : shown) {
        const unsigned char code = TravelCode(c);
        const bool printable = code >= 0x20 && code < 0x80;
        if (code != 0)
            c = printable ? QChar(code) : QChar(QChar::ReplacementCharacter);
    }
    return shown;
}

} // namespace platform

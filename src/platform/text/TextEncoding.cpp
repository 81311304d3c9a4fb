// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/TextEncoding.h"

#include "core/TextMarks.h"
#include "platform/base/Failure.h"
#include "platform/text/CodePage.h"

#include <QStringConverter>
#include <algorithm>
#include <array>

namespace platform {
namespace {

struct Mark {
    TextEncoding encoding = TextEncoding::CodePage;
    QByteArrayView bytes;
};

constexpr std::array<Mark, 3> kMarks = {
    Mark{TextEncoding::Utf8WithMark, core::kUtf8Mark},
    Mark{TextEncoding::Utf16LEWithMark, core::kUtf16LEMark},
    Mark{TextEncoding::Utf16BEWithMark, core::kUtf16BEMark},
};

QByteArrayView MarkOf(TextEncoding encoding) {
    const auto* mark = std::find_if(kMarks.begin(), kMarks.end(),
                                    [&](const Mark& m) { return m.encoding == encoding; });
    return mark == kMarks.end() ? QByteArrayView() : mark->bytes;
}

bool IsAscii(QByteArrayView bytes) {
    unsigned char all = 0;
    for (const char c : bytes)
        all |= static_cast<unsigned char>(c);
    return all < 0x80;
}

bool IsUtf16(TextEncoding encoding) {
    return encoding == TextEncoding::Utf16LEWithMark || encoding == TextEncoding::Utf16BEWithMark;
}

QStringConverter::Encoding Utf16Converter(TextEncoding encoding) {
    return encoding == TextEncoding::Utf16LEWithMark ? QStringConverter::Utf16LE
                                                     : QStringConverter::Utf16BE;
}

QByteArray EncodeUtf16(const QByteArray& utf8, TextEncoding encoding) {
    QStringEncoder encoder(Utf16Converter(encoding));
    return MarkOf(encoding).toByteArray() + QByteArray(encoder(FromUtf8(utf8)));
}

DecodedText DecodeUtf16(const QByteArray& bytes, TextEncoding encoding) {
    QStringDecoder decoder(Utf16Converter(encoding), QStringConverter::Flag::ConvertInitialBom);
    const QString text = decoder(QByteArrayView(bytes).sliced(MarkOf(encoding).size()));
    DecodedText result{encoding, text.toUtf8()};
    if (EncodeUtf16(result.utf8, encoding) != bytes)
        throw Failure(FailureCode::InvalidText, QStringLiteral("Texto"),
                      QStringLiteral("el texto UTF-16 está dañado"));
    return result;
}

TextEncoding Detect(const QByteArray& bytes, bool ascii) {
    for (const Mark& mark : kMarks) {
        if (!bytes.startsWith(mark.bytes))
            continue;
        if (IsUtf16(mark.encoding) || bytes.isValidUtf8())
            return mark.encoding;
    }
    return !ascii && bytes.isValidUtf8() ? TextEncoding::Utf8 : TextEncoding::CodePage;
}

DecodedText DecodeAny(const QByteArray& bytes) {
    const bool ascii = IsAscii(bytes);
    const TextEncoding encoding = Detect(bytes, ascii);
    if (IsUtf16(encoding))
        return DecodeUtf16(bytes, encoding);
    if (encoding == TextEncoding::CodePage && !ascii)
        return {encoding, CodePageToUtf8(bytes)};
    return {encoding, bytes.sliced(MarkOf(encoding).size())};
}

} // namespace

QString FromUtf8(QByteArrayView utf8) {
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decoder(utf8);
}

DecodedText DecodeText(const QByteArray& bytes) {
    DecodedText result = DecodeAny(bytes);
    if (result.utf8.contains('\0'))
        throw Failure(
            FailureCode::InvalidText, QStringLiteral("Texto"),
            QStringLiteral("contiene caracteres nulos, así que no es un archivo de texto"));
    return result;
}

EncodedText EncodeText(const QByteArray& utf8, TextEncoding wanted) {
    if (IsUtf16(wanted))
        return {wanted, EncodeUtf16(utf8, wanted)};
    if (wanted == TextEncoding::Utf8WithMark)
        return {wanted, MarkOf(wanted).toByteArray() + utf8};
    if (wanted == TextEncoding::CodePage) {
        if (IsAscii(utf8))
            return {wanted, utf8};
        const auto bytes = ToCodePage(FromUtf8(utf8));
        if (bytes && Detect(*bytes, false) == TextEncoding::CodePage)
            return {wanted, *bytes};
    }
    return {TextEncoding::Utf8, utf8};
}

QByteArray EncodeForPlayer(const QString& text) {
    const auto bytes = ToCodePage(text);
    return bytes ? *bytes : text.toUtf8();
}

} // namespace platform

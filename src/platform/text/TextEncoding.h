// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

/// How the text of a file is held on the disk. The marks are the byte order marks of Unicode.
enum class TextEncoding { CodePage, Utf8, Utf8WithMark, Utf16LEWithMark, Utf16BEWithMark };

/// Valid UTF-8 as text; a U+FEFF at the start stays, which QString::fromUtf8 would take for a mark.
QString FromUtf8(QByteArrayView utf8);

struct DecodedText {
    TextEncoding encoding = TextEncoding::CodePage;
    QByteArray utf8; ///< the text without a mark, line ends untouched
};

struct EncodedText {
    TextEncoding encoding = TextEncoding::CodePage; ///< the one that was used
    QByteArray bytes;
};

/// Detects the encoding of a file's bytes and converts them to UTF-8. Bytes without a mark are in
/// the code page if they aren't valid UTF-8 or are plain ASCII. EncodeText of the result gives the
/// same bytes. Fails (InvalidText) on NUL characters and on broken UTF-16, which no text editor can
/// hold.
DecodedText DecodeText(const QByteArray& bytes);

/// The bytes for a user's own file. Where the code page is wanted, a text that doesn't fit it, or
/// that DecodeText would read back differently, becomes UTF-8 without a mark.
EncodedText EncodeText(const QByteArray& utf8, TextEncoding wanted);

/// The bytes of a script for a player, which needn't be decoded again: in the code page if the text
/// fits it, else UTF-8 without a mark.
QByteArray EncodeForPlayer(const QString& text);

} // namespace platform

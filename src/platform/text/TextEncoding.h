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

/// Tells the encoding of a file's bytes and turns them into UTF-8. What has no mark and is not
/// valid UTF-8, or is plain ASCII, counts as the code page. EncodeText of the result gives the same
/// bytes. Fails (InvalidText) on NUL characters and on broken UTF-16: no text editor can hold
/// these.
DecodedText DecodeText(const QByteArray& bytes);

/// The bytes for a user's own file. A text that can't be held in the code page, or that would be
/// read back otherwise from it, becomes UTF-8 without a mark.
EncodedText EncodeText(const QByteArray& utf8, TextEncoding wanted);

/// The bytes of a script for a player, which nobody reads back: in the code page whenever the text
/// fits it, else UTF-8 without a mark.
QByteArray EncodeForPlayer(const QString& text);

} // namespace platform

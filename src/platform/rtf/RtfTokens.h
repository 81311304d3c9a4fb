// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <optional>

namespace platform {

/// One piece of an RTF file.
struct RtfToken {
    enum class Kind {
        End,    ///< no byte is left
        Open,   ///< {
        Close,  ///< }
        Word,   ///< a control word in `text`, its number in `number`
        Symbol, ///< a control symbol: one character in `text`
        Byte,   ///< \'xx, the byte in `text`
        Text,   ///< bytes that stand for themselves
    };
    Kind kind = Kind::End;
    QByteArrayView text;
    std::optional<int> number = {};
};

/// Cuts the bytes of an RTF file into tokens, in one pass. Line ends between tokens are dropped.
/// The bytes must outlive it and its tokens.
class RtfTokens {
public:
    explicit RtfTokens(QByteArrayView bytes) : m_bytes(bytes) {}

    RtfToken Next();
    /// Passes over raw bytes, as those behind \bin. False if the file ends before.
    bool Skip(qsizetype count);

private:
    QByteArrayView Take(qsizetype count);
    RtfToken Control();
    RtfToken HexByte();
    RtfToken Text();
    std::optional<int> Number();
    bool HasMore() const { return m_at < m_bytes.size(); }
    char Peek() const { return HasMore() ? m_bytes[m_at] : '\0'; }

    QByteArrayView m_bytes;
    qsizetype m_at = 0;
    char m_byte = '\0'; ///< holds the text of a Byte until the next call
};

} // namespace platform

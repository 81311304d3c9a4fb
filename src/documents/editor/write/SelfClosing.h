// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <vector>

namespace documents {

/// Which brackets and quotes are closed as they are typed, and which of those that were is
/// written over. It is told of the line with the caret at each key that matters.
class SelfClosing {
public:
    struct Place {
        qsizetype line = 0;
        QByteArrayView before; ///< what the line has before the caret
        QByteArrayView after;
    };

    static bool IsPart(char character); ///< of a pair
    /// What closes the bracket or quote; 0 for any other character.
    static char CloserOf(char opener);
    /// Whether the line leaves room for a closer; whether the caret is in a string or a comment is
    /// for the caller to see.
    static bool HasRoom(char opener, const Place& place);

    /// A closer was put behind the caret, before `after`.
    void Closed(char closer, const Place& place);
    /// Whether the typed character stands behind the caret already because it was put there.
    /// Forgets it then.
    bool SkipsOver(char typed, const Place& place);
    /// Whether the characters on both sides of the caret are an empty pair that goes at once: any
    /// of brackets, but only such quotes as were put there.
    bool IsEmptyPair(const Place& place);

private:
    struct Closer {
        char character;
        qsizetype toLineEnd; // in bytes, itself included; what is typed before it doesn't change it
    };
    bool IsOurs(const Place& place);

    qsizetype m_line = -1;
    std::vector<Closer> m_closers; // of that line, the innermost last
};

} // namespace documents

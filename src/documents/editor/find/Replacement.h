// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/find/Search.h"

#include <QByteArray>
#include <optional>
#include <vector>

namespace documents {

/// What comes in the place of a search's hits: with a Lua pattern as in string.gsub, where %0 is
/// the hit, %1 to %9 are its captures and %% is a %. A capture of a position is empty.
class Replacement {
public:
    Replacement(const Search& search, const QString& text);

    /// Why it can't be used, in Spanish; empty if it can.
    const QString& Fault() const { return m_fault; }

    struct Result {
        QByteArray utf8;
        qsizetype count = 0; ///< of the hits
        qsizetype caret = 0; ///< where the caret stands in the new text
        QString fault;       ///< in Spanish; the rest has no meaning then
    };
    /// The whole text with all hits replaced.
    Result All(QByteArrayView utf8, qsizetype caret) const;
    /// What replaces the hit in this line, unless the search doesn't find it there.
    std::optional<QByteArray> One(QByteArrayView line, Hit hit) const;

private:
    void Parse(const QString& text);
    void AddCapture(int number);
    QByteArray Of(const QRegularExpressionMatch& match) const;

    struct Piece {
        QString text;
        int capture; ///< that follows the text; 0 for the hit, -1 for none
    };

    Search m_search;
    std::vector<Piece> m_pieces;
    QString m_fault;
};

} // namespace documents

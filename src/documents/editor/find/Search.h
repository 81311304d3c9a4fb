// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QRegularExpression>
#include <QString>
#include <functional>
#include <stop_token>
#include <vector>

namespace documents {

struct SearchFor {
    QString what;
    bool caseSensitive = false; ///< a Lua pattern always is
    bool wholeWord = false;     ///< no letter, digit or _ goes on over either end
    bool luaPattern = false;

    bool operator==(const SearchFor&) const = default;
};

/// A piece of text, in bytes.
struct Hit {
    qsizetype from = 0;
    qsizetype to = 0;

    bool operator==(const Hit&) const = default;
};

/// Looks for pieces of lines in UTF-8; none is empty and none holds a line end. It can be used in
/// any thread.
class Search {
public:
    explicit Search(const SearchFor& wanted);

    const SearchFor& Wanted() const { return m_wanted; }
    /// Why nothing can be looked for, in Spanish; empty if something can or nothing is wanted.
    const QString& Fault() const { return m_fault; }
    static QString TooMuchWork();
    int Captures() const { return m_captures; }

    using Visitor = std::function<void(Hit, const QRegularExpressionMatch&)>;
    /// Tells of each hit from the first to the last. False if it was stopped or if the pattern asks
    /// for too much work; it has told of a part of the hits then.
    bool Visit(QByteArrayView utf8, const Visitor& visitor, const std::stop_token& stop = {}) const;

    struct Result {
        std::vector<Hit> hits;
        QString fault; ///< in Spanish; there are no hits then
    };
    Result In(QByteArrayView utf8) const;

private:
    QString Expression();

    SearchFor m_wanted;
    int m_captures = 0;
    QString m_fault;
    QRegularExpression m_expression;
};

} // namespace documents

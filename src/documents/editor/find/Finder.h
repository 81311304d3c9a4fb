// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/find/Search.h"

#include <QObject>
#include <QTimer>
#include <optional>
#include <vector>

namespace documents {

class ScriptEditor;

/// The hits of a search in an editor's text: marks those in view, selects one after the other and
/// replaces them. While there is a search they follow each edit, a moment later.
class Finder : public QObject {
    Q_OBJECT

public:
    enum class Direction { On, Back };
    enum class Way { Nothing, Straight, AroundTheEnd, AroundTheStart };

    Finder(ScriptEditor& editor, QObject* parent);

    /// Looks for it in the whole text; the caret stays.
    void LookFor(const SearchFor& wanted);
    /// Forgets the search and takes the marks away.
    void Stop();

    const SearchFor& Wanted() const { return m_search.Wanted(); }
    /// Why there are no hits, in Spanish; empty if there just are none.
    const QString& Fault() const { return m_fault; }
    size_t Count() const { return m_hits.size(); }
    /// The number, from 0, of the hit that is selected.
    std::optional<size_t> Selected() const;

    /// Selects the first hit from a position on, or the last one before it; goes around the ends.
    Way SelectFrom(qsizetype position, Direction direction);
    /// Selects the one beside the selection.
    Way SelectNext(Direction direction);

    struct Outcome {
        qsizetype count = 0; ///< of the hits that were replaced
        QString fault;       ///< in Spanish; nothing has changed then
    };
    /// Replaces the hit that is selected, if one is, and leaves the caret behind it.
    Outcome ReplaceSelected(const QString& text);
    /// In one undo step; caret, view and the markers of the lines stay.
    Outcome ReplaceAll(const QString& text);

Q_SIGNALS:
    /// The hits were looked for anew after an edit.
    void Renewed();

private:
    void Renew();
    void RenewIfStale();
    void MarkVisible();
    void PutIn(const QByteArray& utf8, qsizetype caret);

    ScriptEditor& m_editor;
    Search m_search;
    std::vector<Hit> m_hits;
    QString m_fault;
    QTimer m_stale; // runs while the text is newer than the hits
};

} // namespace documents

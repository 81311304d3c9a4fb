// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <string>
#include <vector>

class QKeyEvent;

namespace documents {

struct CallContext;
class CommandSet;
class ScriptEditor;

/// The list of what may be written at the caret: while a word is typed, after '.' and ':', and when
/// it's asked for. Tab takes an entry; Enter does only once one was chosen with the arrows.
class Completion : public QObject {
    Q_OBJECT

public:
    /// Should be the last to watch the editor's keys: those of the open list are then its own.
    Completion(ScriptEditor& editor, CommandSet& commands, QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void SetUp();
    void Typed(int character);
    void Deleted();
    void Offer(size_t leastLetters, bool asked);
    std::vector<std::string> OffersFor(const CallContext& context) const;
    bool IsBeforeName() const;
    bool TakesKey(const QKeyEvent& key);
    bool IsOnScreen(size_t letters) const;
    bool IsOpen() const;
    void Take();
    void Close();

    ScriptEditor& m_editor;
    bool m_byItself = true;
    bool m_chosen = false; // with the arrows
};

} // namespace documents

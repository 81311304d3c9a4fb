// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/write/SelfClosing.h"

#include <QObject>

class QKeyEvent;

namespace documents {

class CommandSet;
class ScriptEditor;

/// Closes brackets and quotes as they are typed, puts them around a selection, and takes an empty
/// pair back. The user can switch it off, for all documents.
class BracketCloser : public QObject {
    Q_OBJECT

public:
    BracketCloser(ScriptEditor& editor, CommandSet& commands);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Takes(QKeyEvent& key);
    bool TakesBackspace(const SelfClosing::Place& place);
    bool TakesTyped(char typed, const SelfClosing::Place& place, QKeyEvent& key);
    bool Surround(char opener);
    bool IsInQuote(const SelfClosing::Place& place) const;

    ScriptEditor& m_editor;
    SelfClosing m_closing;
    bool m_on;
    bool m_inKey = false;
};

} // namespace documents

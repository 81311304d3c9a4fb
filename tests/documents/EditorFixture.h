// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "support/TestHome.h"

#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

/// An editor alone with its commands, and texts in which '|' is the caret and '^' the other end of
/// the selection.
class EditorFixture : public testing::Test {
protected:
    EditorFixture() {
        QObject::connect(&editor, &documents::ScriptEditor::Edited, &window, [this] { ++edits; });
        editor.SetFontName(QStringLiteral("Courier New")); // columns are one below the other
        window.resize(400, 300);
        editor.resize(window.size());
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        editor.setFocus();
    }
    void Put(QByteArray text) {
        const qsizetype first = text.indexOf('^');
        if (first >= 0)
            text.remove(first, 1);
        const qsizetype caret = text.indexOf('|');
        text.remove(caret, 1);
        const qsizetype anchor = first < 0 ? caret : first > caret ? first - 1 : first;
        editor.Load(text);
        if (!text.contains('\r'))
            editor.NewLineEnd(core::LineEnd::Lf);
        editor.Select(anchor, caret);
        edits = 0;
    }
    std::string Shown() const {
        QByteArray text = editor.Bytes();
        const qsizetype caret = editor.Caret();
        const qsizetype anchor = editor.SelectionStart() + editor.SelectionEnd() - caret;
        text.insert(std::max(caret, anchor), caret >= anchor ? '|' : '^');
        if (caret != anchor)
            text.insert(std::min(caret, anchor), caret > anchor ? '^' : '|');
        return text.toStdString();
    }
    void Press(const char* keys) {
        for (const QString& key : QString::fromLatin1(keys).split(u' ')) {
            const QKeyCombination combined = QKeySequence(key)[0];
            QTest::keyClick(&editor, combined.key(), combined.keyboardModifiers());
        }
    }

    support::TestHome home;
    QWidget window;
    documents::ScriptEditor editor{&window};
    documents::CommandSet commands{editor, window};
    int edits = 0;
};

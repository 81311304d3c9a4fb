// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/LineEnds.h"
#include "documents/editor/engine/EditorColors.h"

#include <Qsci/qsciscintilla.h>

namespace documents {

/// The engine under CodeMax: QScintilla set up for Lua, with the keys of the menu left to the menu
/// and dropped files left to the main window. Positions are in bytes of UTF-8, lines from 0.
class ScriptEditor : public QsciScintilla {
    Q_OBJECT

public:
    /// In bytes. With longer lines typing becomes slow: each key measures the whole line anew.
    static constexpr qsizetype kLongestLine = 1 << 20;
    static qsizetype LongestLine(QByteArrayView text);

    explicit ScriptEditor(QWidget* parent);

    /// What the engine answers to a message.
    long Send(unsigned int message, qsizetype first = 0, qsizetype second = 0) const {
        return SendScintilla(message, static_cast<unsigned long>(first), static_cast<long>(second));
    }
    QByteArray Bytes() const;
    /// The whole text until the next change. Takes a copy of the text's length if the last change
    /// was elsewhere than the one before.
    QByteArrayView View() const;
    QByteArray Range(qsizetype from, qsizetype to) const;
    qsizetype Length() const { return SendScintilla(SCI_GETLENGTH); }
    qsizetype Caret() const { return SendScintilla(SCI_GETCURRENTPOS); }
    qsizetype SelectionStart() const { return SendScintilla(SCI_GETSELECTIONSTART); }
    qsizetype SelectionEnd() const { return SendScintilla(SCI_GETSELECTIONEND); }
    qsizetype LineOf(qsizetype position) const;
    qsizetype LineStart(qsizetype line) const;
    /// Where the line's text ends, before its line end.
    qsizetype LineEnd(qsizetype line) const;

    /// The line end that a new line gets.
    core::LineEnd NewLineEnd() const;
    void NewLineEnd(core::LineEnd end);
    /// Gives all lines that line end, and new ones, in one undo step.
    void ConvertLineEnds(core::LineEnd end);

    /// Replaces a piece of the text; the caret stays where it was in the rest.
    void Replace(qsizetype from, qsizetype to, QByteArrayView utf8);
    /// Selects from `anchor` to `caret`, unfolds the caret's line and brings it into view, in the
    /// middle if it wasn't there.
    void Select(qsizetype anchor, qsizetype caret);
    void GoTo(qsizetype position) { Select(position, position); }

    /// False if there isn't the memory for replacing the text by one of that many bytes.
    bool Reserve(qsizetype bytes);
    /// Replaces everything and empties the history; emits no signal. New lines get the line end
    /// that the text uses most.
    void Load(const QByteArray& utf8);
    /// Replaces everything in one undo step, which holds only the text from the first difference
    /// on; the caret goes to the end, in view.
    void ReplaceAll(const QByteArray& utf8);

    /// `color` is 0x00BBGGRR, or -1 for the default of the item.
    void SetItemColor(int item, int color);
    /// Whether the dark set of colours counts; the items' colours wait meanwhile.
    void Dark(bool dark);
    bool Dark() const { return m_colors.Dark(); }
    /// The system's font of fixed pitch if that one isn't there or isn't fixed.
    void SetFontName(const QString& name);
    /// The user's choice, which goes before SetFontName's; empty for none.
    void SetOwnFont(const QString& name);
    void SetFontPoints(int points);
    /// The size of the letters, zoom included, in hundredths of the one that was set.
    int ZoomPercent() const;
    /// This and the next are put off while the text is too large or has too long lines.
    void SetLuaColors(bool on);
    void SetBraceMatch(bool on);
    void ShowLeftMargin(bool on);
    void ShowLineNumbers(bool on);

    void paste() override;
    void undo() override;
    void redo() override;

Q_SIGNALS:
    /// After each change of the text, or after all changes of an EditStep or of a key; not after
    /// Load.
    void Edited();
    /// After Load.
    void Loaded();
    /// The context menu is wanted at this place of the screen.
    void MenuWanted(const QPoint& place);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    QByteArray fromMimeData(const QMimeData* source, bool& rectangular) const override;

private:
    friend class EditStep;
    void BeginStep();
    void EndStep();
    void HoldEdited() { ++m_holds; }
    void ReleaseEdited();
    void TellEdited();
    void ReleaseMenuKeys();
    void ChooseHelpers(QByteArrayView text);
    void ColorLua(bool on);
    void SplitRuns();
    void WatchInsertions();
    void FitLineNumbers();
    void UseFont();

    EditorColors m_colors;
    QString m_font;
    QString m_ownFont;
    int m_holds = 0;       // while there are any, Edited waits
    bool m_edited = false; // meanwhile
    bool m_lineNumbers = false;
    bool m_luaColors = false;
    bool m_longLines = false;
    bool m_wantsColors = false;
    bool m_wantsBraces = false;
};

} // namespace documents

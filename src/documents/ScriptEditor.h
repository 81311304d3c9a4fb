// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Qsci/qsciscintilla.h>
#include <array>

namespace documents {

/// The engine under CodeMax: QScintilla set up for Lua, with the keys of the menu left to the menu
/// and dropped files left to the main window.
class ScriptEditor : public QsciScintilla {
    Q_OBJECT

public:
    explicit ScriptEditor(QWidget* parent);

    QByteArray Bytes() const;
    /// Replaces everything and forgets the history; signals nothing. Later line ends follow those
    /// of the text.
    void Load(const QByteArray& utf8);
    /// Replaces everything in one step of undo, which holds no more than what is behind the first
    /// difference; the caret goes to the end, in view.
    void ReplaceAll(const QByteArray& utf8);

    /// `color` is 0x00BBGGRR, or -1 for the default of the item.
    void SetItemColor(int item, int color);
    void SetFontName(const QString& name);
    void SetFontPoints(int points);
    void SetLuaColors(bool on);
    void ShowLeftMargin(bool on);
    void ShowLineNumbers(bool on);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    QByteArray fromMimeData(const QMimeData* source, bool& rectangular) const override;

private:
    void ReleaseMenuKeys();
    void SetStyle(unsigned int message, int style, long value);
    void ApplyColors();
    void FitLineNumbers();

    std::array<int, 31> m_colors{};
    bool m_lineNumbers = false;
    bool m_luaColors = false;
};

} // namespace documents

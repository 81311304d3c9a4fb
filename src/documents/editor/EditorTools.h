// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/text/TextEncoding.h"

#include <QObject>
#include <QString>
#include <array>
#include <functional>

class QVBoxLayout;
class QWidget;

namespace documents {

class CommandSet;
class GoToBar;
class Indenter;
class MessageBar;
class ScriptEditor;
class StatusLine;
class Zoom;

/// All that an editor has around its text: makes the parts, puts those that are seen below the text
/// and joins what one tells with what another does.
class EditorTools : public QObject {
    Q_OBJECT

public:
    /// The parts that are seen go to the end of the layout of `control`. `folder` answers the
    /// program path of the script's folder; empty for a script without one.
    EditorTools(ScriptEditor& editor, CommandSet& commands, QVBoxLayout& layout, QWidget& control,
                const std::function<QString()>& folder);

    /// How the text will be saved.
    void Encoding(platform::TextEncoding encoding);
    /// Whether lines are indented as they are typed.
    void AutoIndent(bool on);
    /// Says it below the text.
    void Say(const QString& text);

    /// Escape in the text closes what is open below it, one part after the other.
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The user wants the text saved so.
    void EncodingChosen(platform::TextEncoding encoding);
    /// The user wants to see a line, from 0, of the file with that program path.
    void LineWanted(const QString& path, qsizetype line);

private:
    void AddToView(QWidget& control);
    void AddToWriting();
    void JoinStatusLine();
    void AddFileCommands();

    ScriptEditor& m_editor;
    CommandSet& m_commands;
    MessageBar* m_message;
    StatusLine* m_status;
    GoToBar* m_goTo;
    Zoom* m_zoom;
    Indenter* m_indenter;
    std::array<QWidget*, 5> m_closable{}; // in the order in which Escape closes them
    platform::TextEncoding m_encoding = platform::TextEncoding::CodePage;
};

} // namespace documents

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/text/TextEncoding.h"

#include <QWidget>
#include <memory>

namespace documents {

class CommandSet;
class EditorTools;
class ScriptEditor;

/// The code editor of a document window, with a ScriptEditor (QsciScintilla) in it. It keeps mixed
/// line ends and the encoding of the file that it opened.
///
/// The undo history begins after the first Text or OpenFile, which raises no Change. OpenFile never
/// raises Change and empties the history.
class CodeMax : public QWidget {
    Q_OBJECT

public:
    explicit CodeMax(QWidget* parent = nullptr);
    ~CodeMax() override;

    QString Text() const;
    /// Replaces the whole text in one undo step; the caret goes to its end, in view. NUL characters
    /// are left out. Fails if it is too large or has a line of more than 1 MiB.
    void Text(const QString& text);
    /// Replaces the selection, or inserts at the caret, in one undo step; line ends stay as given.
    void SelText(const QString& text);

    /// Replaces the whole text by the file's. Fails, with a text that names file and reason, and
    /// changes nothing if the file can't be read, has NUL characters, is too large or has a line of
    /// more than 1 MiB.
    void OpenFile(const QString& path);
    /// Writes the text in the encoding in which it was opened, or a new one in the code page; in
    /// UTF-8 if it doesn't fit. Fails as WriteFile does and keeps the old file then. The second
    /// argument has no meaning.
    void SaveFile(const QString& path, bool);
    /// Writes the same bytes by ReplaceFile and fails as that does. Doesn't change the encoding
    /// that SaveFile uses.
    void SaveCopy(const QString& path) const;

    void Undo();
    void Redo();
    void Copy();
    void Cut();
    void Paste();
    /// Fails on any other command than 137, which selects the whole text.
    void ExecuteCmd(int command);

    /// `item` is 0 to 30; `color` is 0x00BBGGRR or -1 for the control's default.
    void SetColor(int item, int color);
    /// Fails on an option that the control doesn't have.
    void SetOption(int option, int value);
    void FontName(const QString& name);
    void FontSize(int points);

    /// `flags` 12 shows the page set-up, 13 the print dialog, then prints. Fails as PrintScript
    /// does.
    void PrintDoc(int, int flags);

    /// Places the control in its window, in twips.
    void Move(int left, int top, int width, int height);
    void SetFocus();

    /// The program path of the last OpenFile or SaveFile; empty before.
    const QString& Path() const { return m_path; }
    /// Puts the caret at the start of the line, from 1, and brings it into view.
    void ShowLine(int line);

Q_SIGNALS:
    void Change(documents::CodeMax* control);
    /// The user wants to see that line, from 1, of the file with that program path.
    void LineWanted(const QString& path, int line);

private:
    void Begin(const QByteArray& utf8);
    platform::EncodedText Encoded() const;
    /// Why QsciScintilla can't work with the text, as the end of a sentence; empty if it can.
    QString WhyNotHeld(const QByteArray& utf8);

    void AddEditCommands();
    void UseEncoding(platform::TextEncoding encoding);
    void ChooseEncoding(platform::TextEncoding encoding);

    ScriptEditor* m_editor;
    CommandSet* m_commands;
    std::unique_ptr<EditorTools> m_tools; // gone before the editor, which it uses to its end
    QString m_path;
    platform::TextEncoding m_encoding = platform::TextEncoding::CodePage;
    bool m_begun = false;
};

} // namespace documents

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/text/TextEncoding.h"

#include <QWidget>

namespace documents {

class ScriptEditor;

/// The code editor of a document window. It keeps line ends byte for byte, mixed or not, and the
/// encoding of the file that it opened; it colours Lua by itself.
///
/// The first content of a control, by Text or OpenFile, is where its history begins: it raises no
/// Change and there is nothing to undo. OpenFile never raises Change and empties the history.
class CodeMax : public QWidget {
    Q_OBJECT

public:
    explicit CodeMax(QWidget* parent = nullptr);

    QString Text() const;
    /// Replaces the whole text, in one step of undo; the caret goes to its end, in view. NUL
    /// characters are left out.
    void Text(const QString& text);
    /// Replaces the selection, or inserts at the caret, in one step of undo; line ends stay as
    /// given.
    void SelText(const QString& text);

    /// Replaces the whole text by the file's. Fails with a text that names the file and the reason,
    /// and changes nothing then; so it does for a file with NUL characters, and for one with a line
    /// of more than 1 MiB.
    void OpenFile(const QString& path);
    /// Writes the whole text in the encoding in which it was opened, whole or not at all. A new
    /// text goes out in the code page, or as UTF-8 if it doesn't fit. The second argument has no
    /// meaning.
    void SaveFile(const QString& path, bool);
    /// Writes the same bytes as a new file in the place of any that bears the name, write-protected
    /// or not. What is saved later doesn't depend on it.
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

    /// 12 shows the page set-up, 13 the print dialog, and prints if the user goes on.
    void PrintDoc(int, int flags);

    /// Places the control in its window, in twips.
    void Move(int left, int top, int width, int height);
    void SetFocus();

Q_SIGNALS:
    void Change(documents::CodeMax* control);

private:
    void Begin(const QByteArray& utf8);
    platform::EncodedText Encoded() const;
    /// Why the engine can't work with the text, as the end of a sentence; empty if it can.
    QString WhyNotHeld(const QByteArray& utf8);

    ScriptEditor* m_editor;
    platform::TextEncoding m_encoding = platform::TextEncoding::CodePage;
    bool m_begun = false;
    bool m_quiet = false;
};

} // namespace documents

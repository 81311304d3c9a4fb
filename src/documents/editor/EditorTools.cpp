// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/EditorTools.h"

#include "core/LineEnds.h"
#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/find/FindBar.h"
#include "documents/editor/find/FolderSearchPane.h"
#include "documents/editor/find/GoToBar.h"
#include "documents/editor/view/BlockPairs.h"
#include "documents/editor/view/Bookmarks.h"
#include "documents/editor/view/CheckMarks.h"
#include "documents/editor/view/Folding.h"
#include "documents/editor/view/FunctionList.h"
#include "documents/editor/view/HelpPane.h"
#include "documents/editor/view/Looks.h"
#include "documents/editor/view/MessageBar.h"
#include "documents/editor/view/StatusLine.h"
#include "documents/editor/view/Zoom.h"
#include "documents/editor/write/BracketCloser.h"
#include "documents/editor/write/CallHover.h"
#include "documents/editor/write/CallTips.h"
#include "documents/editor/write/Completion.h"
#include "documents/editor/write/Indenter.h"
#include "documents/editor/write/LineCommands.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

namespace documents {

using platform::TextEncoding;

namespace {

bool HasListOrTip(const ScriptEditor& editor) {
    return editor.Send(QsciScintilla::SCI_AUTOCACTIVE) != 0 ||
           editor.Send(QsciScintilla::SCI_CALLTIPACTIVE) != 0;
}

} // namespace

EditorTools::EditorTools(ScriptEditor& editor, CommandSet& commands, QVBoxLayout& layout,
                         QWidget& control, const std::function<QString()>& folder)
    : m_editor(editor),
      m_commands(commands),
      m_message(new MessageBar(&control)),
      m_status(new StatusLine(editor, &control)),
      m_goTo(new GoToBar(editor, commands, &control)),
      m_zoom(new Zoom(editor, commands, this)),
      m_indenter(new Indenter(editor)) {
    auto* search = new FolderSearchPane(editor, commands, folder, &control);
    auto* find = new FindBar(editor, commands, &control);
    auto* help = new HelpPane(editor, commands, &control);
    const std::array<QWidget*, 6> below = {help, find, m_goTo, search, m_message, m_status};
    for (QWidget* part : below)
        layout.addWidget(part);
    m_closable = {m_message, find, m_goTo, search, help};
    editor.installEventFilter(this);
    connect(search, &FolderSearchPane::OpenAt, this, &EditorTools::LineWanted);
    connect(m_message, &MessageBar::Closed, &editor, qOverload<>(&QWidget::setFocus));
    AddToView(control);
    AddToWriting();
    JoinStatusLine();
    AddFileCommands();
}

void EditorTools::AddToView(QWidget& control) {
    new Folding(m_editor, m_commands, this);
    new BlockPairs(m_editor, m_commands, this);
    new FunctionList(m_editor, m_commands, &control);
    new Bookmarks(m_editor, m_commands, this);
    new Looks(m_editor, m_commands, this);
    auto* check = new CheckMarks(m_editor, m_commands, this);
    connect(check, &CheckMarks::FaultChanged, m_status, &StatusLine::Fault);
    connect(m_status, &StatusLine::FaultClicked, check, &CheckMarks::GoToFault);
}

void EditorTools::AddToWriting() {
    new LineCommands(m_editor, m_commands);
    new BracketCloser(m_editor, m_commands);
    new CallTips(m_editor, m_commands, this);
    new CallHover(m_editor, this);
    new Completion(m_editor, m_commands, this); // the last to watch the keys
}

void EditorTools::JoinStatusLine() {
    connect(m_status, &StatusLine::PlaceClicked, m_goTo, &GoToBar::Open);
    connect(m_status, &StatusLine::ZoomClicked, m_zoom, &Zoom::Reset);
    connect(m_status, &StatusLine::InsertClicked, this,
            [this] { m_editor.setOverwriteMode(!m_editor.overwriteMode()); });
    connect(m_status, &StatusLine::EncodingChosen, this, &EditorTools::EncodingChosen);
    connect(m_status, &StatusLine::LineEndsChosen, &m_editor, &ScriptEditor::ConvertLineEnds);
}

// The menus of the status line, by keyboard.
void EditorTools::AddFileCommands() {
    m_commands.AddSeparator(Menu::Edit);
    m_commands.AddSubmenu(Menu::Edit, QStringLiteral("C&odificación al guardar"), [this] {
        std::vector<Command> encodings;
        encodings.reserve(kEncodings.size());
        for (const TextEncoding encoding : kEncodings)
            encodings.push_back({EncodingName(encoding),
                                 {},
                                 [this, encoding] { Q_EMIT EncodingChosen(encoding); },
                                 [this, encoding] { return m_encoding == encoding; }});
        return encodings;
    });
    m_commands.AddSubmenu(Menu::Edit, QStringLiteral("&Fines de línea"), [this] {
        std::vector<Command> ends;
        ends.reserve(kLineEnds.size());
        for (const core::LineEnd end : kLineEnds)
            ends.push_back({LineEndName(end),
                            {},
                            [this, end] { m_editor.ConvertLineEnds(end); },
                            [this, end] { return m_editor.NewLineEnd() == end; }});
        return ends;
    });
}

bool EditorTools::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || HasListOrTip(m_editor) ||
        static_cast<QKeyEvent*>(event)->keyCombination() != QKeyCombination(Qt::Key_Escape))
        return QObject::eventFilter(watched, event);
    const auto open = std::find_if(m_closable.begin(), m_closable.end(),
                                   [](const QWidget* part) { return part->isVisible(); });
    return open != m_closable.end() && QCoreApplication::sendEvent(*open, event);
}

void EditorTools::Encoding(TextEncoding encoding) {
    m_encoding = encoding;
    m_status->Encoding(encoding);
}

void EditorTools::AutoIndent(bool on) {
    m_indenter->SetOn(on);
}

void EditorTools::Say(const QString& text) {
    m_message->Say(text);
}

} // namespace documents

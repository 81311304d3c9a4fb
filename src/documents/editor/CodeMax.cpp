// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/CodeMax.h"

#include "documents/editor/EditorTools.h"
#include "documents/editor/ScriptPrinter.h"
#include "documents/editor/engine/CodeMaxConstants.h"
#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/EditStep.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/view/StatusLine.h"
#include "platform/base/Failure.h"
#include "platform/base/Twips.h"
#include "platform/files/FileErrors.h"
#include "platform/files/Files.h"
#include "platform/files/TextFile.h"
#include "platform/text/CodePage.h"

#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <functional>
#include <limits>

namespace documents {
namespace {

using platform::Failure;
using platform::FailureCode;

// QsciScintilla counts bytes in an int.
constexpr qsizetype kLargestText = std::numeric_limits<int>::max();

[[noreturn]] void Refuse(const QString& what, int number) {
    throw Failure(FailureCode::InvalidArgument, QStringLiteral("CodeMax"),
                  QStringLiteral("El editor no conoce %1 %2.").arg(what).arg(number));
}

QByteArray WithoutNul(const QString& text) {
    return text.toUtf8().replace('\0', QByteArrayView());
}

} // namespace

CodeMax::CodeMax(QWidget* parent)
    : QWidget(parent),
      m_editor(new ScriptEditor(this)),
      m_commands(new CommandSet(*m_editor, *this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_editor);
    setFocusProxy(m_editor);
    m_editor->setAccessibleName(QStringLiteral("Texto del script"));
    connect(m_editor, &ScriptEditor::Edited, this, [this] {
        m_begun = true;
        Q_EMIT Change(this);
    });
    AddEditCommands();
    m_tools = std::make_unique<EditorTools>(*m_editor, *m_commands, *layout, *this, [this] {
        return m_path.left(m_path.lastIndexOf(QLatin1Char('\\')) + 1);
    });
    connect(m_tools.get(), &EditorTools::LineWanted, this,
            [this](const QString& path, qsizetype line) {
                Q_EMIT LineWanted(path, static_cast<int>(line) + 1);
            });
    connect(m_tools.get(), &EditorTools::EncodingChosen, this, &CodeMax::ChooseEncoding);
}

CodeMax::~CodeMax() = default;

// Their keys are the menu's or the engine's own.
void CodeMax::AddEditCommands() {
    struct Row {
        const char16_t* text;
        Qt::Key letter;
        std::function<void()> run;
    };
    const std::array rows = {
        Row{u"&Deshacer", Qt::Key_Z, [this] { Undo(); }},
        Row{u"&Rehacer", Qt::Key_Y, [this] { Redo(); }},
        Row{u"Cor&tar", Qt::Key_X, [this] { Cut(); }},
        Row{u"&Copiar", Qt::Key_C, [this] { Copy(); }},
        Row{u"&Pegar", Qt::Key_V, [this] { Paste(); }},
        Row{u"&Seleccionar todo", Qt::Key_E, [this] { ExecuteCmd(kSelectAllCommand); }},
    };
    for (const Row& row : rows)
        m_commands->Add(
            Menu::Edit,
            {QStringLiteral("%1\tCtrl+%2").arg(row.text).arg(QChar(row.letter)), {}, row.run});
}

QString CodeMax::Text() const {
    return platform::FromUtf8(m_editor->Bytes());
}

QString CodeMax::WhyNotHeld(const QByteArray& utf8) {
    if (utf8.size() > kLargestText || !m_editor->Reserve(utf8.size()))
        return QStringLiteral("es demasiado grande para el editor");
    if (ScriptEditor::LongestLine(utf8) > ScriptEditor::kLongestLine)
        return QStringLiteral("tiene una línea de más de 1 MiB, y con líneas tan largas el editor "
                              "no puede trabajar");
    return {};
}

void CodeMax::Begin(const QByteArray& utf8) {
    m_editor->Load(utf8);
    m_begun = true;
}

void CodeMax::Text(const QString& text) {
    const QByteArray utf8 = WithoutNul(text);
    if (const QString why = WhyNotHeld(utf8); !why.isEmpty())
        throw Failure(FailureCode::InvalidText, QStringLiteral("CodeMax"),
                      QStringLiteral("El texto %1.").arg(why));
    if (!m_begun) {
        Begin(utf8);
        return;
    }
    m_editor->ReplaceAll(utf8);
}

void CodeMax::SelText(const QString& text) {
    const EditStep step(*m_editor);
    m_editor->SendScintilla(QsciScintilla::SCI_REPLACESEL, WithoutNul(text).constData());
    m_editor->ensureCursorVisible();
}

void CodeMax::OpenFile(const QString& path) {
    const platform::DecodedText decoded = platform::ReadTextFile(path);
    if (const QString why = WhyNotHeld(decoded.utf8); !why.isEmpty())
        throw Failure(FailureCode::InvalidText, QStringLiteral("CodeMax"),
                      platform::FileFailureText(u"abrir", path, why));
    Begin(decoded.utf8);
    UseEncoding(decoded.encoding);
    m_path = path;
}

void CodeMax::UseEncoding(platform::TextEncoding encoding) {
    m_encoding = encoding;
    m_tools->Encoding(encoding);
}

// What won't fit is said now, while it can still be changed.
void CodeMax::ChooseEncoding(platform::TextEncoding encoding) {
    UseEncoding(encoding);
    if (Encoded().encoding == encoding)
        return;
    const QString text = Text();
    const qsizetype outside = platform::FirstOutsideCodePage(text);
    const QString name = EncodingName(encoding);
    if (outside < 0)
        m_tools->Say(QStringLiteral("Este texto, guardado en %1, se leería como UTF-8. Al guardar "
                                    "quedará en UTF-8.")
                         .arg(name));
    else
        m_tools->Say(
            QStringLiteral("«%1», en la línea %2, no existe en %3. Si sigue ahí al guardar, el "
                           "archivo quedará en UTF-8.")
                .arg(text.mid(outside, text.at(outside).isSurrogate() ? 2 : 1))
                .arg(m_editor->LineOf(text.left(outside).toUtf8().size()) + 1)
                .arg(name));
}

platform::EncodedText CodeMax::Encoded() const {
    return platform::EncodeText(m_editor->Bytes(), m_encoding);
}

void CodeMax::SaveFile(const QString& path, bool) {
    const platform::EncodedText encoded = Encoded();
    platform::WriteFile(path, encoded.bytes);
    UseEncoding(encoded.encoding);
    m_editor->setModified(false);
    m_path = path;
}

void CodeMax::SaveCopy(const QString& path) const {
    platform::ReplaceFile(path, Encoded().bytes);
}

void CodeMax::Undo() {
    m_editor->undo();
}
void CodeMax::Redo() {
    m_editor->redo();
}
void CodeMax::Copy() {
    m_editor->copy();
}
void CodeMax::Cut() {
    m_editor->cut();
}
void CodeMax::Paste() {
    m_editor->paste();
}

void CodeMax::ExecuteCmd(int command) {
    if (command != kSelectAllCommand)
        Refuse(QStringLiteral("la orden"), command);
    m_editor->selectAll();
}

void CodeMax::SetColor(int item, int color) {
    if (item < 0 || item > kLastColorItem)
        Refuse(QStringLiteral("el color"), item);
    m_editor->SetItemColor(item, color);
}

void CodeMax::SetOption(int option, int value) {
    const bool on = value != 0;
    switch (option) {
    case kBraceMatchOption:
        return m_editor->SetBraceMatch(on);
    case kKeepTabsOption:
        return m_editor->setIndentationsUseTabs(on);
    case kSyntaxColorOption:
        return m_editor->SetLuaColors(on);
    case kLeftMarginOption:
        return m_editor->ShowLeftMargin(on);
    case kLineNumberOption:
        return m_editor->ShowLineNumbers(on);
    case kAutoIndentOption:
        return m_tools->AutoIndent(on);
    default:
        Refuse(QStringLiteral("la opción"), option);
    }
}

void CodeMax::FontName(const QString& name) {
    m_editor->SetFontName(name);
}
void CodeMax::FontSize(int points) {
    m_editor->SetFontPoints(points);
}

void CodeMax::PrintDoc(int, int flags) {
    if (flags == kPageSetupFlags)
        SetUpScriptPage(window());
    else if (flags == kPrintFlags)
        // QWidget::setWindowTitle takes a single "[*]" for its mark, so the title has it twice.
        PrintScript(*m_editor, parentWidget()->windowTitle().replace(QStringLiteral("[*][*]"),
                                                                     QStringLiteral("[*]")));
    else
        Refuse(QStringLiteral("la impresión"), flags);
}

void CodeMax::Move(int left, int top, int width, int height) {
    setGeometry(platform::ToPixels(left), platform::ToPixels(top), platform::ToPixels(width),
                platform::ToPixels(height));
}

void CodeMax::SetFocus() {
    setFocus();
}

void CodeMax::ShowLine(int line) {
    m_editor->GoTo(m_editor->LineStart(std::clamp(line, 1, m_editor->lines()) - 1));
}

} // namespace documents

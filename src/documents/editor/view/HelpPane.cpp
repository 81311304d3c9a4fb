// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/HelpPane.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/view/ManualBrowser.h"
#include "documents/editor/write/ContextAt.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QToolButton>
#include <algorithm>

namespace documents {
namespace {

constexpr int kLeastHeight = 100; // in pixels; of the text above too

QToolButton* MakeButton(QWidget* parent, const QString& text) {
    auto* button = new QToolButton(parent);
    button->setAutoRaise(true);
    button->setText(text);
    button->setCursor(Qt::ArrowCursor);
    return button;
}

} // namespace

HelpPane::HelpPane(ScriptEditor& editor, CommandSet& commands, QWidget* parent)
    : QFrame(parent), m_editor(editor), m_browser(new ManualBrowser(this)) {
    setFrameShape(QFrame::StyledPanel);
    setCursor(Qt::SizeVerCursor); // of the head, which is all that the rest leaves free
    m_browser->setCursor(Qt::ArrowCursor);
    setFocusProxy(m_browser);
    auto* head = new QHBoxLayout;
    AddButton(*head, QStringLiteral("Llamada"), &HelpPane::ShowCall);
    AddButton(*head, QStringLiteral("Manual"), &HelpPane::ShowManual);
    AddButton(*head, QStringLiteral("Teclas"), &HelpPane::ShowKeys);
    auto* back = MakeButton(this, QStringLiteral("Atrás"));
    back->setEnabled(false);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(back, &QToolButton::clicked, m_browser, &QTextBrowser::backward);
    head->addWidget(back);
    head->addStretch();
    auto* close = MakeButton(this, {});
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAccessibleName(QStringLiteral("Cerrar la ayuda"));
    close->setToolTip(QStringLiteral("Cerrar la ayuda (Escape)"));
    connect(close, &QToolButton::clicked, this, &HelpPane::Close);
    head->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 3, 0, 0);
    layout->setSpacing(2);
    layout->addLayout(head);
    layout->addWidget(m_browser);
    AddCommands(commands);
    hide();
}

void HelpPane::AddButton(QHBoxLayout& head, const QString& text, void (HelpPane::*page)()) {
    QToolButton* button = MakeButton(this, text);
    connect(button, &QToolButton::clicked, this, page);
    head.addWidget(button);
}

void HelpPane::AddCommands(CommandSet& commands) {
    commands.Add(Menu::Help, {QStringLiteral("A&yuda de la llamada"),
                              {QKeySequence(Qt::SHIFT | Qt::Key_F1)},
                              [this] { ShowCall(); }});
    commands.Add(Menu::Help, {QStringLiteral("&Manual"), {}, [this] { ShowManual(); }});
    commands.Add(Menu::Help, {QStringLiteral("&Todas las teclas"), {}, [this] { ShowKeys(); }});
}

void HelpPane::ShowCall() {
    const CallContext name = ContextOfName(m_editor, m_editor.Caret());
    const Call* call = name.named ? name.named : ContextAt(m_editor, m_editor.Caret()).call;
    Open();
    if (call)
        m_browser->ShowCall(*call);
    else
        m_browser->ShowManual();
}

void HelpPane::ShowManual() {
    Open();
    m_browser->ShowManual();
}

void HelpPane::ShowKeys() {
    Open();
    m_browser->ShowManual(QStringLiteral("todas-las-teclas"));
}

void HelpPane::Open() {
    if (!isVisible())
        SetHeight(parentWidget()->height() * 2 / 5);
    show();
    m_browser->setFocus();
}

void HelpPane::Close() {
    hide();
    m_editor.setFocus();
    Q_EMIT Closed();
}

void HelpPane::SetHeight(int pixels) {
    const int most = parentWidget()->height() - kLeastHeight;
    setFixedHeight(std::max(std::min(pixels, most), kLeastHeight));
}

void HelpPane::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Close();
    else
        QFrame::keyPressEvent(event);
}

// The head follows the mouse.
void HelpPane::mouseMoveEvent(QMouseEvent* event) {
    SetHeight(height() - static_cast<int>(event->position().y()));
}

} // namespace documents

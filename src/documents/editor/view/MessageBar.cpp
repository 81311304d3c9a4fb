// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/MessageBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

namespace documents {

MessageBar::MessageBar(QWidget* parent) : QFrame(parent), m_text(new QLabel(this)) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_text->setForegroundRole(QPalette::ToolTipText);
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    auto* close = new QToolButton(this);
    close->setAutoRaise(true);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAccessibleName(QStringLiteral("Cerrar el aviso"));
    close->setToolTip(QStringLiteral("Cerrar el aviso (Escape)"));
    connect(close, &QToolButton::clicked, this, &MessageBar::Close);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 3, 3, 3);
    layout->addWidget(m_text, 1);
    layout->addWidget(close, 0, Qt::AlignTop);
    hide();
}

void MessageBar::Say(const QString& text) {
    m_text->setText(text);
    setAccessibleName(text);
    show();
}

QString MessageBar::Text() const {
    return m_text->text();
}

void MessageBar::Close() {
    hide();
    Q_EMIT Closed();
}

void MessageBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Close();
    else
        QFrame::keyPressEvent(event);
}

} // namespace documents

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/Form.h"

#include "platform/forms/Handler.h"
#include "platform/forms/Keys.h"
#include "platform/forms/MDIFrame.h"
#include "platform/text/NativeNames.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>

namespace platform {

QString TitleText(const QString& caption) {
    return DisplayText(caption).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

Form::Form(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
}

void Form::Caption(const QString& caption) {
    m_caption = caption;
    setWindowTitle(TitleText(caption));
}

void Form::Load() {
    if (m_stage != Stage::Made)
        return;
    m_stage = Stage::Loaded;
    Form_Load();
}

void Form::Show() {
    const QPointer<Form> self(this);
    Load();
    if (!self || m_stage == Stage::Gone)
        return;
    if (State() == WindowState::Minimised)
        State(WindowState::Normal);
    Shell()->show();
    Shell()->raise();
    if (m_shell)
        m_shell->setFocus();
    else
        activateWindow();
    setFocus();
    Q_EMIT Shown();
}

bool Form::Unload() {
    if (m_stage != Stage::Loaded)
        return m_stage != Stage::Made; // closing or gone already
    m_stage = Stage::Closing;
    bool cancel = false;
    RunHandler([&] { Form_QueryUnload(cancel); });
    if (cancel) {
        m_stage = Stage::Loaded;
        return false;
    }
    RunHandler([this] { Form_Unload(); });
    Disappear();
    return true;
}

void Form::Discard() {
    if (m_stage != Stage::Gone)
        Disappear();
}

void Form::Disappear() {
    m_stage = Stage::Gone;
    Shell()->hide();
    Q_EMIT Unloaded();
    Shell()->deleteLater();
}

void Form::Move(int left, int top, int width, int height) {
    if (State() != WindowState::Normal)
        return;
    const QSize inner(ToPixels(width - kFrameWidth), ToPixels(height - kFrameHeight));
    const QMargins frame = m_shell ? m_shell->contentsMargins() : QMargins();
    Shell()->setGeometry(QRect(QPoint(ToPixels(left), ToPixels(top)), inner.grownBy(frame)));
}

void Form::Place(int left, int top) {
    Move(left, top, Width(), Height());
    if (!m_shell || State() != WindowState::Normal)
        return;
    const QSize room(m_shell->parentWidget()->width() - ToPixels(left), m_shell->height());
    m_shell->resize(m_shell->size().boundedTo(room.expandedTo(m_shell->minimumSizeHint())));
}

void Form::Center() {
    if (const auto* frame = qobject_cast<const MDIFrame*>(Shell()->window()))
        Move(frame->Width() / 2 - Width() / 2, frame->Height() / 2 - Height() / 2, Width(),
             Height());
}

WindowState Form::State() const {
    if (Shell()->isMinimized())
        return WindowState::Minimised;
    return Shell()->isMaximized() ? WindowState::Maximised : WindowState::Normal;
}

void Form::State(WindowState state) {
    switch (state) {
    case WindowState::Normal:
        return Shell()->showNormal();
    case WindowState::Minimised:
        return Shell()->showMinimized();
    case WindowState::Maximised:
        return Shell()->showMaximized();
    }
}

void Form::closeEvent(QCloseEvent* event) {
    event->ignore(); // Unload closes it if the handlers agree
    Unload();
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) // a key that is held down presses one button once
        return QWidget::keyPressEvent(event);
    const bool enter = IsEnter(*event);
    // A button that has the focus comes before the default one.
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    if (enter && focused)
        focused->click();
    else if (enter && m_default)
        m_default->click();
    else if (event->key() == Qt::Key_Escape && m_cancel)
        m_cancel->click();
    else
        QWidget::keyPressEvent(event);
}

void Form::Resized() {
    if (m_stage == Stage::Loaded)
        RunHandler([this] { Form_Resize(); });
}

void Form::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Resized();
}

void Form::mouseMoveEvent(QMouseEvent* event) {
    QWidget::mouseMoveEvent(event);
    if (m_stage == Stage::Loaded)
        RunHandler([this] { Form_MouseMove(); });
}

} // namespace platform

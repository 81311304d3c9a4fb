// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Twips.h"

#include <QWidget>

class QAbstractButton;

namespace platform {

enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2 };

/// Base of the program's windows: a child of the main frame once the frame has adopted it, else a
/// window of its own. Its life: made, loaded (Form_Load runs once), shown, and unloaded after it
/// was asked (Form_QueryUnload) and had said goodbye (Form_Unload); then it destroys itself.
///
/// All sizes are in twips. Width and Height are those of the whole window as it was designed: the
/// inner area plus kFrameWidth and kFrameHeight, whatever frame this desktop draws.
class Form : public QWidget {
    Q_OBJECT

public:
    static constexpr int kFrameWidth = 120;
    static constexpr int kFrameHeight = 500;

    explicit Form(QWidget* parent = nullptr);

    const QString& Caption() const { return m_caption; }
    void Caption(const QString& caption);

    /// Runs Form_Load if it hasn't run yet.
    void Load();
    /// Loads, shows and brings to the front, unless the loading has ended in an unload.
    void Show();
    /// Answers whether the window is gone: a handler may have cancelled.
    bool Unload();
    /// Takes the window away without a question or a handler.
    void Discard();
    /// True while the window refuses to be closed; then the frame stays as a whole.
    virtual bool IsBusy() const { return false; }
    bool IsLoaded() const { return m_stage == Stage::Loaded || m_stage == Stage::Closing; }

    /// A minimised or maximised window stays where it is.
    void Move(int left, int top, int width, int height);
    /// Moves the window there and makes it as much narrower as its frame is to the right of the
    /// place, as long as its contents allow it.
    void Place(int left, int top);
    /// Moves the window into the middle of the frame that has adopted it.
    void Center();
    int ScaleWidth() const { return ToTwips(width()); }
    int ScaleHeight() const { return ToTwips(height()); }
    int Width() const { return ScaleWidth() + kFrameWidth; }
    int Height() const { return ScaleHeight() + kFrameHeight; }

    /// A window that keeps this inner size, in pixels, and can't be maximised. To be said before
    /// the frame adopts it.
    void FixedSize(const QSize& size) { setFixedSize(size); }
    bool IsFixedSize() const { return minimumSize() == maximumSize(); }
    /// Whether a window of fixed size has a button to minimise it. To be said before as well.
    void MinButton(bool button) { m_minButton = button; }
    bool MinButton() const { return m_minButton; }

    /// The buttons that Enter and Escape press; Enter presses the one with the focus if there is
    /// one.
    void DefaultButton(QAbstractButton* button) { m_default = button; }
    void CancelButton(QAbstractButton* button) { m_cancel = button; }

    WindowState State() const;
    void State(WindowState state);

    /// The window around the form that the frame has made; the form itself without one.
    QWidget* Shell() { return m_shell ? m_shell : this; }
    const QWidget* Shell() const { return m_shell ? m_shell : this; }
    void SetShell(QWidget* shell) { m_shell = shell; }
    /// The frame calls it when the state of the shell has changed.
    void ShellStateChanged() { Resized(); }

Q_SIGNALS:
    void Shown(); ///< on show and in front, at its place
    void Unloaded();

protected:
    virtual void Form_Load() {}
    virtual void Form_Resize() {}
    virtual void Form_MouseMove() {}
    virtual void Form_QueryUnload(bool& cancel) { Q_UNUSED(cancel) }
    virtual void Form_Unload() {}

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    enum class Stage { Made, Loaded, Closing, Gone };

    void Resized();
    void Disappear();

    QString m_caption;
    QWidget* m_shell = nullptr;
    bool m_minButton = true;
    QAbstractButton* m_default = nullptr;
    QAbstractButton* m_cancel = nullptr;
    Stage m_stage = Stage::Made;
};

/// A caption for QWidget::setWindowTitle, which gives "[*]" a meaning of its own.
QString TitleText(const QString& caption);

} // namespace platform

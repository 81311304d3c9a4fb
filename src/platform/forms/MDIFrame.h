// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/KeyRepeat.h"

#include <QMainWindow>
#include <vector>

class QMdiArea;
class QMdiSubWindow;

namespace platform {

/// The codes of Arrange.
enum class Arrangement { Cascade = 0, TileHorizontal = 1, TileVertical = 2, Icons = 3 };

/// Base of the program's main window: a frame with a menu and child windows.
class MDIFrame : public QMainWindow {
    Q_OBJECT

public:
    MDIFrame();
    ~MDIFrame() override;

    const QString& Caption() const { return m_caption; }
    void Caption(const QString& caption);

    /// Runs MDIForm_Initialize and MDIForm_Load once, then shows the frame.
    void Show();

    /// Makes the form a child of this frame, hidden until it is shown, and owned by it.
    void Adopt(Form* form);
    /// The child that is active, also while a dialog is in front; none in an empty frame.
    Form* ActiveForm() const;
    /// The loaded children in the order in which they were adopted.
    std::vector<Form*> Forms() const;
    /// The loaded children, the one that is or was active last first.
    std::vector<Form*> FormsByActivity() const;
    void Arrange(Arrangement arrangement);

    /// Height in twips as the program was designed for it: a child that is 900 twips less high just
    /// fits into the frame.
    int Height() const;
    int Width() const;

protected:
    /// Does what can be done before the first showing, so that this is quick.
    void Prepare();
    /// Deletes all children at once. A derived frame that its children call calls this in its
    /// destructor.
    void DeleteChildren();

    virtual void MDIForm_Initialize() {}
    virtual void MDIForm_Load() {}
    virtual void MDIForm_QueryUnload(bool& cancel) { Q_UNUSED(cancel) }
    /// A file was dropped on the frame or a child: a program path.
    virtual void FileDropped(const QString& path) { Q_UNUSED(path) }

    bool eventFilter(QObject* object, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void AddKeys();
    /// As large as designed, if the screen has room for that and these borders.
    void FitToScreen(const QMargins& borders);
    void ScrollHome();
    void ScrollTo(const QMdiSubWindow& child);
    std::vector<QMdiSubWindow*> Shells(bool minimised) const;

    KeyRepeat m_keyRepeat;
    QMdiArea* m_area;
    std::vector<Form*> m_forms;
    QString m_caption;
    QSize m_fitted; ///< to the screen
    bool m_initialised = false;
    bool m_closing = false;
};

} // namespace platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MDIFrame.h"

#include "platform/Arrange.h"
#include "platform/Handler.h"
#include "platform/Paths.h"

#include <QCloseEvent>
#include <QDropEvent>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QUrl>
#include <algorithm>

namespace platform {
namespace {

constexpr QSize kDesignedSize(1280, 800);
// Title, menu and borders of the frame, as the program was designed for them.
constexpr int kFrameChrome = 900;

constexpr Qt::WindowFlags kFixedWindow = Qt::SubWindow | Qt::WindowTitleHint |
                                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                                         Qt::MSWindowsFixedSizeDialogHint;

// The window around a child. Its closing is the child's to decide.
class ChildWindow : public QMdiSubWindow {
public:
    explicit ChildWindow(Form* form) : m_form(form) {
        setWidget(form);
        if (form->IsFixedSize())
            KeepSize();
        for (QAction* action : systemMenu()->actions())
            action->setShortcuts(QList<QKeySequence>()); // the keys are the frame's
        connect(this, &QMdiSubWindow::windowStateChanged, form,
                [form](Qt::WindowStates, Qt::WindowStates) { form->ShellStateChanged(); });
    }

    Form* GetForm() const { return m_form; }

protected:
    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        m_form->Unload();
    }

private:
    // The area maximises whatever comes to the front of a maximised child.
    void KeepSize() {
        setWindowFlags(kFixedWindow |
                       (m_form->MinButton() ? Qt::WindowMinimizeButtonHint : Qt::Widget));
        connect(
            this, &QMdiSubWindow::windowStateChanged, this,
            [this](Qt::WindowStates, Qt::WindowStates state) {
                if (state & Qt::WindowMaximized)
                    showNormal();
            },
            Qt::QueuedConnection);
    }

    Form* m_form;
};

std::vector<QUrl> LocalFiles(const QMimeData* data) {
    std::vector<QUrl> files;
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile())
            files.push_back(url);
    }
    return files;
}

} // namespace

MDIFrame::MDIFrame() : m_area(new QMdiArea(this)) {
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    setCentralWidget(m_area);
    setAcceptDrops(true);
    AddKeys();
    resize(kDesignedSize.boundedTo(screen()->availableSize()));
}

// The keys that people know from frames with children.
void MDIFrame::AddKeys() {
    const auto add = [this](const QKeySequence& key, auto action) {
        auto* shortcut = new QShortcut(key, this);
        connect(shortcut, &QShortcut::activated, m_area, action);
    };
    for (const Qt::Key key : {Qt::Key_F6, Qt::Key_Tab})
        add(Qt::CTRL | key, &QMdiArea::activateNextSubWindow);
    for (const Qt::Key key : {Qt::Key_F6, Qt::Key_Backtab})
        add(Qt::CTRL | Qt::SHIFT | key, &QMdiArea::activatePreviousSubWindow);
    add(Qt::Key_F10, [this] {
        if (!menuBar()->actions().isEmpty())
            menuBar()->setActiveAction(menuBar()->actions().constFirst());
    });
    for (const Qt::Key key : {Qt::Key_F4, Qt::Key_W}) {
        add(Qt::CTRL | key, [this] {
            if (Form* form = ActiveForm())
                form->Unload();
        });
    }
}

MDIFrame::~MDIFrame() {
    DeleteChildren();
}

void MDIFrame::DeleteChildren() {
    while (!m_forms.empty()) {
        Form* form = m_forms.back();
        QWidget* shell = form->Shell();
        form->Discard(); // no event reaches it any more
        delete shell;
    }
}

void MDIFrame::Caption(const QString& caption) {
    m_caption = caption;
    setWindowTitle(TitleText(caption));
}

void MDIFrame::Show() {
    if (!m_initialised) {
        m_initialised = true;
        MDIForm_Initialize();
        Prepare(); // children may ask for the height before the frame is seen
        RunHandler([this] { MDIForm_Load(); });
    }
    show();
    activateWindow();
}

void MDIFrame::Prepare() {
    winId(); // makes the native window
    layout()->activate();
}

void MDIFrame::Adopt(Form* form) {
    form->resize(form->size().expandedTo(form->minimumSizeHint())); // larger fonts need more
    const QSize designed = form->size();
    auto* child = new ChildWindow(form);
    form->SetShell(child);
    m_area->addSubWindow(child);
    child->resize(designed.grownBy(child->contentsMargins()));
    m_forms.push_back(form);
    connect(form, &Form::Unloaded, this, [this, form, child] {
        std::erase(m_forms, form);
        m_area->removeSubWindow(child);
    });
}

Form* MDIFrame::ActiveForm() const {
    auto* child = dynamic_cast<ChildWindow*>(m_area->currentSubWindow());
    return child && child->GetForm()->IsLoaded() ? child->GetForm() : nullptr;
}

std::vector<Form*> MDIFrame::Forms() const {
    std::vector<Form*> loaded;
    std::copy_if(m_forms.begin(), m_forms.end(), std::back_inserter(loaded),
                 [](const Form* form) { return form->IsLoaded(); });
    return loaded;
}

int MDIFrame::Height() const {
    const QWidget* child = m_forms.empty() ? nullptr : m_forms.back()->Shell();
    const QMargins frame = child ? child->contentsMargins() : QMargins();
    const int inner = m_area->viewport()->height() - frame.top() - frame.bottom();
    return ToTwips(inner) + Form::kFrameHeight + kFrameChrome;
}

int MDIFrame::Width() const {
    return ToTwips(m_area->viewport()->width()) + Form::kFrameWidth;
}

std::vector<QMdiSubWindow*> MDIFrame::Shells(bool minimised) const {
    std::vector<QMdiSubWindow*> shells;
    for (QMdiSubWindow* child : m_area->subWindowList()) {
        if (child->isVisible() && child->isMinimized() == minimised)
            shells.push_back(child);
    }
    return shells;
}

void MDIFrame::Arrange(Arrangement arrangement) {
    const std::vector<QMdiSubWindow*> shells = Shells(arrangement == Arrangement::Icons);
    if (shells.empty())
        return;
    const QSize area = m_area->viewport()->size();
    const int count = static_cast<int>(shells.size());
    const int step = shells.front()->contentsMargins().top();
    std::vector<QRect> rects;
    switch (arrangement) {
    case Arrangement::Cascade:
        rects = CascadeRects(area, count, step);
        break;
    case Arrangement::TileHorizontal:
        rects = TileHorizontallyRects(area, count);
        break;
    case Arrangement::TileVertical:
        rects = TileVerticallyRects(area, count);
        break;
    case Arrangement::Icons:
        rects = IconRects(area, count, shells.front()->size());
        break;
    }
    for (size_t i = 0; i < shells.size(); ++i) {
        if (arrangement != Arrangement::Icons && shells[i]->isMaximized())
            shells[i]->showNormal();
        const auto* form = qobject_cast<const Form*>(shells[i]->widget());
        const bool fixed = form && form->IsFixedSize() && !shells[i]->isMinimized();
        shells[i]->setGeometry(fixed ? QRect(rects[i].topLeft(), shells[i]->size()) : rects[i]);
    }
}

void MDIFrame::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // A maximised child writes its own title into the frame's.
    if (event->type() == QEvent::WindowTitleChange && windowTitle() != TitleText(m_caption))
        setWindowTitle(TitleText(m_caption));
}

void MDIFrame::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (m_closing)
        return;
    const std::vector<Form*> forms = Forms();
    const auto busy =
        std::find_if(forms.begin(), forms.end(), [](const Form* form) { return form->IsBusy(); });
    if (busy != forms.end()) {
        (*busy)->Unload(); // it says why it stays
        return;
    }
    m_closing = true;
    bool cancel =
        !std::all_of(forms.begin(), forms.end(), [](Form* form) { return form->Unload(); });
    if (!cancel)
        RunHandler([&] { MDIForm_QueryUnload(cancel); });
    m_closing = false;
    event->setAccepted(!cancel);
}

void MDIFrame::dragEnterEvent(QDragEnterEvent* event) {
    // A copy whatever the source proposes: after a move it would delete the file.
    if (LocalFiles(event->mimeData()).empty() || !(event->possibleActions() & Qt::CopyAction))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void MDIFrame::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    for (const QUrl& url : LocalFiles(event->mimeData())) {
        // The bytes of the name, which need not be UTF-8.
        const QByteArray native =
            QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toUtf8());
        RunHandler([&] { FileDropped(FromNative(native.toStdString())); });
    }
}

} // namespace platform

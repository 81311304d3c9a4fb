// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/MDIFrame.h"

#include "platform/base/Twips.h"
#include "platform/files/Paths.h"
#include "platform/forms/Arrange.h"
#include "platform/forms/Handler.h"

#include <QAction>
#include <QCloseEvent>
#include <QDropEvent>
#include <QKeySequence>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace platform {
namespace {

constexpr QSize kDesignedSize(1280, 800);
// Title and borders around the frame, as long as the desktop hasn't told its own.
constexpr QMargins kUsualBorders(6, 36, 6, 6);
// Title, menu and borders of the frame, as the program was designed for them.
constexpr int kFrameChrome = 900;

constexpr Qt::WindowFlags kFixedWindow = Qt::SubWindow | Qt::WindowTitleHint |
                                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                                         Qt::MSWindowsFixedSizeDialogHint;

// The QMdiSubWindow around a form, which decides whether it closes.
class ChildWindow : public QMdiSubWindow {
public:
    explicit ChildWindow(Form* form) : m_form(form) {
        setWidget(form);
        if (form->IsFixedSize())
            KeepSize();
        for (QAction* action : systemMenu()->actions())
            action->setShortcuts(QList<QKeySequence>()); // the frame has them
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
    // QMdiArea maximises any window that comes in front of a maximised one.
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

int Count(const std::vector<QMdiSubWindow*>& shells) {
    return static_cast<int>(shells.size());
}

bool KeepsSize(const QMdiSubWindow* shell) {
    const auto* form = qobject_cast<const Form*>(shell->widget());
    return form && form->IsFixedSize() && !shell->isMinimized();
}

// Makes no window smaller than it can be. One that then reaches out of the area is moved inside and
// covers its neighbours.
void PutAll(const std::vector<QMdiSubWindow*>& shells, const std::vector<QRect>& places,
            QSize area) {
    for (size_t i = 0; i < shells.size(); ++i) {
        const QSize size = KeepsSize(shells[i])
                               ? shells[i]->size()
                               : places[i].size().expandedTo(shells[i]->minimumSizeHint());
        shells[i]->setGeometry(MovedInside({places[i].topLeft(), size}, area));
    }
}

// Windows of fixed size are stacked at the right; the others share the rest, at least half of the
// width.
void Tile(std::vector<QMdiSubWindow*> shells, QSize area, decltype(&TileVerticallyRects) tile) {
    const auto fixed = std::stable_partition(shells.begin(), shells.end(), std::not_fn(KeepsSize));
    std::vector<QSize> sizes;
    std::transform(fixed, shells.end(), std::back_inserter(sizes),
                   [](const QMdiSubWindow* shell) { return shell->size(); });
    const std::vector<QRect> stack = StackRects(area, sizes);
    int width = area.width();
    for (const QRect& rect : stack)
        width = std::min(width, rect.left());
    const QSize rest(std::max(width, area.width() / 2), area.height());
    std::vector<QRect> places = tile(rest, static_cast<int>(fixed - shells.begin()));
    places.insert(places.end(), stack.begin(), stack.end());
    PutAll(shells, places, area);
}

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
    FitToScreen(kUsualBorders);
}

void MDIFrame::FitToScreen(const QMargins& borders) {
    const QRect room = screen()->availableGeometry();
    m_fitted = kDesignedSize.boundedTo(room.size().shrunkBy(borders));
    resize(m_fitted);
    if (!isVisible())
        return;
    const QRect outer(frameGeometry().topLeft() - room.topLeft(), m_fitted.grownBy(borders));
    move(room.topLeft() + MovedInside(outer, room.size()).topLeft());
}

// At the first QEvent::Expose the desktop has put its borders around the frame.
bool MDIFrame::eventFilter(QObject* object, QEvent* event) {
    if (object == windowHandle() && event->type() == QEvent::Expose) {
        object->removeEventFilter(this);
        if (size() == m_fitted)
            FitToScreen(windowHandle()->frameMargins());
    }
    return QMainWindow::eventFilter(object, event);
}

// The usual keys of windows with child windows.
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
    windowHandle()->installEventFilter(this);
    layout()->activate();
}

void MDIFrame::Adopt(Form* form) {
    form->resize(form->size().expandedTo(form->minimumSizeHint())); // larger fonts need more
    const QSize designed = form->size();
    auto* child = new ChildWindow(form);
    ScrollHome(); // the form places itself while it loads
    form->SetShell(child);
    m_area->addSubWindow(child);
    child->resize(designed.grownBy(child->contentsMargins()));
    m_forms.push_back(form);
    connect(form, &Form::Shown, this, [this, child] { ScrollTo(*child); });
    connect(form, &Form::Unloaded, this, [this, form, child] {
        std::erase(m_forms, form);
        m_area->removeSubWindow(child);
    });
}

Form* MDIFrame::ActiveForm() const {
    auto* child = dynamic_cast<ChildWindow*>(m_area->currentSubWindow());
    return child && child->GetForm()->IsLoaded() ? child->GetForm() : nullptr;
}

std::vector<Form*> MDIFrame::FormsByActivity() const {
    std::vector<Form*> forms;
    for (QMdiSubWindow* window : m_area->subWindowList(QMdiArea::ActivationHistoryOrder)) {
        const auto* child = dynamic_cast<ChildWindow*>(window);
        if (child && child->GetForm()->IsLoaded())
            forms.insert(forms.begin(), child->GetForm());
    }
    return forms;
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

// Scrolls a child that is beyond the area's edges into sight, or at least its upper left corner.
void MDIFrame::ScrollTo(const QMdiSubWindow& child) {
    const QSize area = m_area->viewport()->size();
    const QPoint beyond = child.pos() - MovedInside(child.geometry(), area).topLeft();
    for (const auto& [bar, by] : {std::pair(m_area->horizontalScrollBar(), beyond.x()),
                                  std::pair(m_area->verticalScrollBar(), beyond.y())})
        bar->setValue(bar->value() + by);
}

// QMdiArea counts the places of its children from the corner that is in sight.
void MDIFrame::ScrollHome() {
    for (QScrollBar* bar : {m_area->horizontalScrollBar(), m_area->verticalScrollBar()})
        bar->setValue(0);
}

void MDIFrame::Arrange(Arrangement arrangement) {
    ScrollHome();
    const std::vector<QMdiSubWindow*> icons = Shells(true);
    const std::vector<QMdiSubWindow*> shells = Shells(false);
    QSize area = m_area->maximumViewportSize();
    if (arrangement == Arrangement::Icons && !icons.empty())
        PutAll(icons, IconRects(area, Count(icons), icons.front()->size()), area);
    if (arrangement == Arrangement::Icons || shells.empty())
        return;
    for (QMdiSubWindow* shell : shells) {
        if (shell->isMaximized())
            shell->showNormal();
    }
    if (!icons.empty())
        area.rheight() -= icons.front()->height(); // minimised windows stay uncovered
    if (std::any_of(shells.begin(), shells.end(), [&](const QMdiSubWindow* shell) {
            return KeepsSize(shell) && shell->height() > area.height();
        }))
        area.rwidth() -= m_area->verticalScrollBar()->sizeHint().width();
    if (arrangement == Arrangement::Cascade) {
        const int step = shells.front()->contentsMargins().top();
        PutAll(shells, CascadeRects(area, Count(shells), step), area);
    } else {
        Tile(shells, area,
             arrangement == Arrangement::TileVertical ? TileVerticallyRects
                                                      : TileHorizontallyRects);
    }
}

void MDIFrame::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // QMdiSubWindow adds the title of a maximised child to that of the frame.
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
        (*busy)->Unload(); // it tells the user why it stays
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
    // Always a copy: after a move the other program would delete its file.
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

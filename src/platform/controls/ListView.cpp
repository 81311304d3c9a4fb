// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ListView.h"

#include "platform/base/Twips.h"
#include "platform/controls/FontOfHeight.h"
#include "platform/controls/ListModel.h"
#include "platform/forms/Handler.h"
#include "platform/forms/Keys.h"
#include "platform/text/NativeNames.h"

#include <QApplication>
#include <QChar>
#include <QFontMetrics>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QListView>
#include <QMetaObject>
#include <QMouseEvent>
#include <QPalette>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace platform {
namespace {

constexpr int kIconSide = 16;      // pixels
constexpr int kColumnPadding = 16; // pixels, around icon and name
constexpr int kRowPadding = 4;     // pixels
constexpr int kHeaderPadding = 4;  // pixels, over and below the text together
constexpr size_t kMeasured = 256;  // names
constexpr size_t kCharacters = 0x10000;

// The width of the widest name. Laying out every name takes long when there are many, so only those
// are measured whose characters, each by itself, add up to the largest widths.
int WidestName(const std::vector<ListItem>& items, const QFontMetrics& metrics) {
    std::vector<int> advances(kCharacters, -1);
    std::vector<std::pair<int, const ListItem*>> names;
    names.reserve(items.size());
    for (const ListItem& item : items) {
        int width = 0;
        for (const QChar c : item.text) {
            int& advance = advances[c.unicode()];
            if (advance < 0)
                advance = metrics.horizontalAdvance(c);
            width += advance;
        }
        names.emplace_back(width, &item);
    }
    const size_t measured = std::min(names.size(), kMeasured);
    std::ranges::nth_element(names, names.begin() + static_cast<std::ptrdiff_t>(measured),
                             std::greater());
    int widest = 0;
    for (const auto& [width, item] : std::span(names).first(measured))
        widest = std::max(widest, metrics.horizontalAdvance(DisplayText(item->text)));
    return widest;
}

} // namespace

ListView::ListView(QWidget* parent)
    : QStackedWidget(parent),
      m_model(new ListModel(this)),
      m_list(new QListView(this)),
      m_report(new QTreeView(this)) {
    m_list->setFlow(QListView::TopToBottom);
    m_list->setWrapping(true);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setUniformItemSizes(true);
    m_report->setRootIsDecorated(false);
    m_report->setItemsExpandable(false);
    m_report->setUniformRowHeights(true);
    m_report->setAllColumnsShowFocus(true);
    m_report->header()->setSectionsMovable(false);
    m_report->header()->setStretchLastSection(false);
    connect(m_report->horizontalScrollBar(), &QScrollBar::valueChanged, Header()->viewport(),
            qOverload<>(&QWidget::update)); // QHeaderView alone would only scroll what is there
    Prepare(m_list);
    Prepare(m_report);
    m_report->setSelectionModel(m_list->selectionModel());
    setFocusProxy(m_list);
}

void ListView::Prepare(QAbstractItemView* view) {
    addWidget(view);
    view->setModel(m_model);
    view->setIconSize({kIconSide, kIconSide});
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setDragDropMode(QAbstractItemView::NoDragDrop);
    view->setTextElideMode(Qt::ElideMiddle);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
}

ListDisplay ListView::View() const {
    return currentWidget() == m_list ? ListDisplay::List : ListDisplay::Report;
}

void ListView::View(ListDisplay display) {
    QWidget* shown = display == ListDisplay::List ? static_cast<QWidget*>(m_list) : m_report;
    setFocusProxy(shown);
    setCurrentWidget(shown);
}

QHeaderView* ListView::Header() const {
    return m_report->header();
}

std::optional<HDITEM> ListView::HeaderItem(int column) const {
    if (column < 0 || column >= m_model->columnCount())
        return {};
    const ColumnHeader& header = m_model->Headers()[static_cast<size_t>(column)];
    HDITEM item{header.text, HDF_STRING, {}};
    if (header.alignment.testFlag(Qt::AlignRight))
        item.fmt |= HDF_RIGHT;
    else if (header.alignment.testFlag(Qt::AlignHCenter))
        item.fmt |= HDF_CENTER;
    if (m_headerIcons && !header.icon.isEmpty()) {
        item.fmt |= HDF_IMAGE;
        item.image = m_headerIcons->Image(header.icon);
    }
    return item;
}

void ListView::HeaderFont(int lineHeight) {
    const bool own = lineHeight > 0;
    Header()->setFont(own ? FontOfHeight(lineHeight) : QApplication::font(Header()));
    Header()->setMinimumHeight(own ? lineHeight + kHeaderPadding : 0);
    Header()->setMaximumHeight(own ? lineHeight + kHeaderPadding : QWIDGETSIZE_MAX);
    Q_EMIT Header()->geometriesChanged(); // QTreeView lays its header out anew
}

void ListView::ColumnHeaderIcons(const ImageList* images) {
    m_headerIcons = images;
    m_model->HeaderIcons(images);
    Header()->viewport()->update();
}

QSize ListView::HeaderIconSize() const {
    return m_headerIcons ? m_report->iconSize() : QSize();
}

QString ListView::Text(int row, int column) const {
    m_model->Publish();
    return m_model->index(row - 1, column).data().toString();
}

int ListView::Count() const {
    return static_cast<int>(m_model->Items().size());
}

void ListView::ClearColumnHeaders() {
    m_model->Headers({});
}

void ListView::AddColumnHeader(const ColumnHeader& header) {
    std::vector<ColumnHeader> headers = m_model->Headers();
    headers.push_back(header);
    m_model->Headers(std::move(headers));
    for (int i = 0; i < m_model->columnCount(); ++i)
        Header()->resizeSection(i, ToPixels(m_model->Headers()[static_cast<size_t>(i)].width));
}

void ListView::ClearItems() {
    m_model->Clear();
}

void ListView::AddItem(ListItem item) {
    m_model->Add(std::move(item));
    if (m_waiting)
        return;
    m_waiting = true; // the rows of one handler are shown together
    QMetaObject::invokeMethod(this, &ListView::ShowNewRows, Qt::QueuedConnection);
}

void ListView::ShowNewRows() {
    m_waiting = false;
    m_model->Publish();
    FitColumn();
}

void ListView::FitColumn() {
    const QFontMetrics metrics = m_list->fontMetrics();
    const int width = WidestName(m_model->Items(), metrics) + kIconSide + kColumnPadding;
    const int height = std::max(kIconSide, metrics.height()) + kRowPadding;
    const QSize cell(std::min(width, m_list->viewport()->width()), height);
    if (m_list->gridSize() != cell)
        m_list->setGridSize(cell);
}

int ListView::SelectedIndex() const {
    const QModelIndexList selected = m_list->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? 0 : selected.constFirst().row() + 1;
}

void ListView::SmallIcons(const ImageList* images) {
    m_smallIcons = images;
    m_model->SmallIcons(images);
    currentWidget()->update();
}

void ListView::Refresh() {
    m_model->Publish();
    currentWidget()->update();
}

QColor ListView::BackColor() const {
    return m_list->palette().color(QPalette::Base);
}

void ListView::OnDblClick(std::function<void()> handler) {
    m_dblClick = std::move(handler);
}

bool ListView::IsOnRow(const QMouseEvent& event) const {
    const auto* shown = static_cast<const QAbstractItemView*>(currentWidget());
    return event.button() == Qt::LeftButton && shown->indexAt(event.position().toPoint()).isValid();
}

// Without a selected row the first arrow selects the current one; QAbstractItemView would skip it.
bool ListView::SelectByKey(const QKeyEvent& event) {
    const bool arrow =
        event.key() == Qt::Key_Down || event.key() == Qt::Key_Up || event.key() == Qt::Key_Home;
    if (!arrow || m_model->rowCount() == 0 || SelectedIndex() != 0)
        return false;
    const QModelIndex current = m_list->currentIndex();
    m_list->selectionModel()->setCurrentIndex(current.isValid() ? current : m_model->index(0, 0),
                                              QItemSelectionModel::ClearAndSelect |
                                                  QItemSelectionModel::Rows);
    return true;
}

bool ListView::eventFilter(QObject* object, QEvent* event) {
    const bool onViewport = object == m_list->viewport() || object == m_report->viewport();
    switch (event->type()) {
    case QEvent::Resize:
        if (object == m_list->viewport())
            FitColumn();
        return false;
    case QEvent::KeyPress:
        return !onViewport && KeyPressed(*static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonDblClick:
        return onViewport && DoubleClicked(*static_cast<QMouseEvent*>(event));
    default:
        return QStackedWidget::eventFilter(object, event);
    }
}

bool ListView::KeyPressed(const QKeyEvent& event) {
    if (SelectByKey(event))
        return true;
    if (!IsEnter(event))
        return false;
    DblClick();
    return true;
}

bool ListView::DoubleClicked(const QMouseEvent& event) {
    if (!IsOnRow(event))
        return false;
    DblClick();
    return true;
}

void ListView::DblClick() {
    const std::function<void()> handler = m_dblClick; // which may take this view away
    if (handler)
        RunHandler(handler);
}

} // namespace platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/FunctionList.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/lua/ScriptFunctions.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QRegularExpression>
#include <QSortFilterProxyModel>
#include <QStringListModel>
#include <QVBoxLayout>
#include <algorithm>

namespace documents {
namespace {

constexpr int kWidth = 320;
constexpr int kRows = 12;
constexpr int kAir = 4;
const QColor kHintInk(128, 128, 128); // some dark desktops leave it black

// Between a name and the number of its line.
QString Separator() {
    return QStringLiteral("  · línea ");
}

} // namespace

FunctionList::FunctionList(ScriptEditor& editor, CommandSet& commands, QWidget* parent)
    : QFrame(parent),
      m_editor(editor),
      m_part(new QLineEdit(this)),
      m_list(new QListView(this)),
      m_names(new QStringListModel(this)),
      m_shown(new QSortFilterProxyModel(this)) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kAir, kAir, kAir, kAir);
    layout->setSpacing(kAir);
    layout->setSizeConstraint(QLayout::SetNoConstraint); // a small text is covered, no more
    layout->addWidget(m_part);
    layout->addWidget(m_list);
    QPalette colors;
    colors.setColor(QPalette::PlaceholderText, kHintInk);
    m_part->setPalette(colors);
    m_part->setAccessibleName(QStringLiteral("Parte del nombre de una función"));
    m_list->setAccessibleName(QStringLiteral("Funciones del script"));
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setUniformItemSizes(true);
    m_shown->setSourceModel(m_names);
    m_list->setModel(m_shown);
    connect(m_part, &QLineEdit::textChanged, this, &FunctionList::Filter);
    connect(m_list, &QListView::clicked, this, &FunctionList::GoToChosen);
    m_part->installEventFilter(this);
    editor.viewport()->installEventFilter(this);
    commands.Add(Menu::Go, {QStringLiteral("&Funciones del script..."),
                            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O)},
                            [this] { Open(); }});
    hide();
}

void FunctionList::Open() {
    Fill();
    m_part->clear();
    m_part->setPlaceholderText(m_places.empty()
                                   ? QStringLiteral("El script no tiene funciones con nombre")
                                   : QStringLiteral("Parte del nombre"));
    // The one in which the caret is.
    const auto after = std::upper_bound(m_places.begin(), m_places.end(), m_editor.Caret());
    Choose(std::max(0, static_cast<int>(after - m_places.begin()) - 1));
    Place();
    show();
    raise();
    m_part->setFocus();
}

void FunctionList::Fill() {
    const QByteArrayView text = m_editor.View();
    QStringList names;
    m_places.clear();
    for (const ScriptFunction& one : Functions({text.data(), static_cast<size_t>(text.size())})) {
        const auto place = static_cast<qsizetype>(one.position);
        names.append(QString::fromStdString(one.name) + Separator() +
                     QString::number(m_editor.LineOf(place) + 1));
        m_places.push_back(place);
    }
    m_names->setStringList(names);
}

// At the top right of the text, as far as there is room.
void FunctionList::Place() {
    const QRect text(m_editor.viewport()->mapTo(parentWidget(), QPoint()),
                     m_editor.viewport()->size());
    const int rows = std::clamp(static_cast<int>(m_places.size()), 1, kRows);
    const int list = rows * m_list->sizeHintForRow(0) + 2 * m_list->frameWidth();
    const int wanted = m_part->sizeHint().height() + list + 3 * kAir + 2 * frameWidth();
    const int width = std::min(kWidth, text.width());
    setGeometry(text.right() + 1 - width, text.top(), width, std::min(wanted, text.height()));
}

// The part is one of the name, not of the line.
void FunctionList::Filter(const QString& part) {
    m_shown->setFilterRegularExpression(
        QRegularExpression(QRegularExpression::escape(part) + QStringLiteral(".*") + Separator(),
                           QRegularExpression::CaseInsensitiveOption));
    Choose(0);
}

void FunctionList::Choose(int row) {
    m_list->setCurrentIndex(m_shown->index(row, 0));
}

void FunctionList::GoToChosen() {
    const QModelIndex chosen = m_shown->mapToSource(m_list->currentIndex());
    Close();
    if (chosen.isValid())
        m_editor.GoTo(m_places.at(static_cast<size_t>(chosen.row())));
}

void FunctionList::Close() {
    hide();
    m_editor.setFocus();
}

bool FunctionList::TakesKey(int key) {
    const int row = m_list->currentIndex().row();
    const int last = m_shown->rowCount() - 1;
    switch (key) {
    case Qt::Key_Escape:
        Close();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        GoToChosen();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        Choose(std::clamp(row + (key == Qt::Key_Up ? -1 : 1), 0, std::max(last, 0)));
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        Choose(std::clamp(row + (key == Qt::Key_PageUp ? -kRows : kRows), 0, std::max(last, 0)));
        return true;
    default:
        return false;
    }
}

bool FunctionList::eventFilter(QObject* watched, QEvent* event) {
    // The viewport's last events come when the editor is gone.
    if (event->type() == QEvent::Resize && watched == m_editor.viewport() && isVisible())
        Place();
    if (watched != m_part)
        return QFrame::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        hide();
    return event->type() == QEvent::KeyPress && TakesKey(static_cast<QKeyEvent*>(event)->key());
}

} // namespace documents

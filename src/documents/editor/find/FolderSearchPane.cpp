// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/FolderSearchPane.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/find/BarParts.h"
#include "documents/editor/find/Search.h"
#include "documents/editor/find/SearchSwitches.h"
#include "platform/base/Failure.h"
#include "platform/text/NativeNames.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <utility>
#include <vector>

namespace documents {
namespace {

enum Column { kFile, kLine, kText, kColumns };
enum Role { kPathRole = Qt::UserRole, kLineRole };

constexpr int kListHeight = 150; // these three in pixels
constexpr int kFileWidth = 130;
constexpr int kLineWidth = 50;

QString Counted(qsizetype count, const QString& one, const QString& many) {
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? one : many);
}

} // namespace

FolderSearchPane::FolderSearchPane(ScriptEditor& editor, CommandSet& commands, Folder folder,
                                   QWidget* parent)
    : QWidget(parent),
      m_editor(editor),
      m_folder(std::move(folder)),
      m_what(MakeBarField(this, QStringLiteral("Buscar en la carpeta del script"))),
      m_switches(new SearchSwitches(this)),
      m_start(MakeBarButton(this, QStringLiteral("Buscar"), QStringLiteral("Empezar o detener"))),
      m_list(new QTreeWidget(this)),
      m_state(new QLabel(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kBarMargin, kBarMargin, kBarMargin, kBarMargin);
    layout->setSpacing(kBarMargin);
    layout->addWidget(MakeRow());
    layout->addWidget(m_switches->MakeRowWith(m_state));
    layout->addWidget(m_list);
    MakeList();
    setFocusProxy(m_what);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(m_what, &QLineEdit::returnPressed, this, &FolderSearchPane::Start);
    connect(m_start, &QAbstractButton::clicked, this, &FolderSearchPane::StartOrStop);
    connect(&m_search, &FolderSearch::Found, this, &FolderSearchPane::Add);
    connect(&m_search, &FolderSearch::Ended, this, &FolderSearchPane::ShowEnd);
    commands.Add(
        Menu::Find,
        {QStringLiteral("En la &carpeta"), {Qt::CTRL | Qt::SHIFT | Qt::Key_F}, [this] { Open(); }});
    hide();
}

QWidget* FolderSearchPane::MakeRow() {
    auto* row = new QWidget(this);
    QHBoxLayout* layout = MakeBarRow(row);
    QAbstractButton* close =
        MakeBarButton(this, QStringLiteral("✕"), QStringLiteral("Cerrar (Esc)"));
    connect(close, &QAbstractButton::clicked, this, &FolderSearchPane::Close);
    layout->addWidget(m_what, 1);
    layout->addWidget(m_start);
    layout->addWidget(close);
    return row;
}

void FolderSearchPane::MakeList() {
    m_list->setHeaderLabels(
        {QStringLiteral("Archivo"), QStringLiteral("Línea"), QStringLiteral("Texto")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setFixedHeight(kListHeight);
    m_list->header()->resizeSection(kFile, kFileWidth);
    m_list->header()->resizeSection(kLine, kLineWidth);
    m_list->setAccessibleName(QStringLiteral("Líneas encontradas"));
    connect(m_list, &QTreeWidget::itemActivated, this,
            [this](const QTreeWidgetItem* row) { Choose(*row); });
}

void FolderSearchPane::Open() {
    const qsizetype from = m_editor.SelectionStart();
    const qsizetype to = m_editor.SelectionEnd();
    if (from < to && m_editor.LineOf(from) == m_editor.LineOf(to) &&
        !m_switches->For({}).luaPattern)
        m_what->setText(QString::fromUtf8(m_editor.Range(from, to)));
    if (m_folder().isEmpty())
        ShowRunning(QStringLiteral("Guarda antes el script: se busca en su carpeta."));
    show();
    m_what->setFocus();
    m_what->selectAll();
}

void FolderSearchPane::Close() {
    m_search.Stop();
    ShowRunning({});
    m_editor.setFocus();
    hide();
}

void FolderSearchPane::StartOrStop() {
    if (!m_search.IsRunning())
        return Start();
    m_search.Stop();
    ShowRunning(QStringLiteral("Detenido"));
}

void FolderSearchPane::Start() {
    const Search search(m_switches->For(m_what->text()));
    m_searched = m_folder();
    m_list->clear();
    ShowAsVain(*m_what, !search.Fault().isEmpty());
    if (m_searched.isEmpty())
        return ShowRunning(QStringLiteral("Guarda antes el script: se busca en su carpeta."));
    if (m_what->text().isEmpty() || !search.Fault().isEmpty())
        return ShowRunning(search.Fault());
    try {
        m_search.Start(m_searched, search);
        ShowRunning(QStringLiteral("Buscando…"));
    } catch (const platform::Failure& failure) {
        ShowRunning(failure.Text());
    }
}

void FolderSearchPane::Add(const QString& path, const std::vector<FoundLine>& lines) {
    const bool below = path.startsWith(m_searched, Qt::CaseInsensitive);
    QString name = below ? path.sliced(m_searched.size()) : path;
    while (name.startsWith(u'\\'))
        name.remove(0, 1);
    QList<QTreeWidgetItem*> rows;
    for (const FoundLine& line : lines) {
        auto* row = new QTreeWidgetItem(
            {platform::DisplayText(name), QString::number(line.line + 1), line.text});
        row->setData(kFile, kPathRole, path);
        row->setData(kFile, kLineRole, QVariant::fromValue(line.line));
        row->setTextAlignment(kLine, Qt::AlignRight | Qt::AlignVCenter);
        rows.append(row);
    }
    m_list->addTopLevelItems(rows);
    if (!m_list->currentItem())
        m_list->setCurrentItem(rows.first());
}

void FolderSearchPane::ShowEnd(const FolderSearch::End& end) {
    const qsizetype lines = m_list->topLevelItemCount();
    QStringList parts = {lines == 0
                             ? QStringLiteral("No se encuentra")
                             : Counted(lines, QStringLiteral("línea"), QStringLiteral("líneas"))};
    parts[0] += QStringLiteral(" en ") + Counted(end.files, QStringLiteral("archivo guardado"),
                                                 QStringLiteral("archivos guardados"));
    if (end.full)
        parts.append(QStringLiteral("puede haber más"));
    if (end.failed > 0)
        parts.append(Counted(end.failed, QStringLiteral("no se ha podido leer"),
                             QStringLiteral("no se han podido leer")));
    parts.append(end.fault);
    parts.removeAll(QString());
    ShowAsVain(*m_what, lines == 0);
    ShowRunning(parts.join(QStringLiteral(" · ")));
}

void FolderSearchPane::ShowRunning(const QString& state) {
    m_start->setText(m_search.IsRunning() ? QStringLiteral("Detener") : QStringLiteral("Buscar"));
    m_state->setText(state);
}

void FolderSearchPane::Choose(const QTreeWidgetItem& row) {
    Q_EMIT OpenAt(row.data(kFile, kPathRole).toString(),
                  row.data(kFile, kLineRole).value<qsizetype>());
}

void FolderSearchPane::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Close();
    else if (event->key() == Qt::Key_Down) // from the field
        m_list->setFocus();
    else
        QWidget::keyPressEvent(event);
}

} // namespace documents

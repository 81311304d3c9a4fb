// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/cSubclassListView.h"

#include "explorer/Retrollamadas.h"
#include "platform/controls/ListView.h"
#include "platform/forms/WindowMessages.h"
#include "platform/forms/WindowTimers.h"

#include <QApplication>
#include <QCursor>
#include <QHeaderView>
#include <QPainter>
#include <QPixmap>
#include <optional>
#include <span>

namespace explorer {
namespace {

using namespace platform;

constexpr int kAlRecibir = 1; // ordinals
constexpr int kAlTocar = 2;
constexpr int kParametrosTimer = 4;
constexpr int kPeriodo = 10; // milliseconds
constexpr int kJuntoALaLetra = 4;
constexpr qsizetype kTitulo = 32; // characters

constexpr quint32 kMensajes[] = {WM_PAINT, WM_MOUSEMOVE, WM_LBUTTONUP, WM_LBUTTONDOWN,
                                 WM_NCHITTEST};

} // namespace

cSubclassListView::cSubclassListView() : MensajesVentana(QStringLiteral("cSubclassListView")) {
    Propias().Poner(kAlRecibir, [this](Aviso& aviso) { Mensaje(aviso); });
    Propias().Poner(kAlTocar, [this](std::span<const qint32>, qint32&) { VigilarSalida(); });
}

cSubclassListView::~cSubclassListView() {
    ssc_UnhookAll();
    if (timerActivo)
        PararTimer();
    scb_ReleaseAll();
}

void cSubclassListView::SubClassListView(HWnd lhWnd) {
    if (timerActivo)
        PararTimer(); // it watches the former header
    hWndLista = lhWnd;
    m_lista = qobject_cast<ListView*>(WidgetOf(lhWnd));
    hWndCabecera = m_lista ? HandleOf(Cabecera().viewport()) : 0;
    if (m_lista)
        PonerLetra();
    m_estado.columnaActiva = -1;
    if (!ssc_Subclass(hWndCabecera, 0, kAlRecibir, &Propias()))
        return;
    for (const quint32 mensaje : kMensajes)
        ssc_WatchMsg(hWndCabecera, static_cast<qint32>(mensaje), MSG_BEFORE);
}

void cSubclassListView::SkinPicture(const QPixmap& New_Picture) {
    m_estado.PonerSkin(New_Picture);
    if (!m_lista)
        return;
    PonerLetra();
    RefreshColData();
}

void cSubclassListView::IconAlingmentRight(bool New_Value) {
    m_estado.IconAlingmentRight = New_Value;
    RefreshColData();
}

void cSubclassListView::TextNormalColor(qint32 New_Color) {
    m_estado.TextNormalColor = New_Color;
    RefreshColData();
}

void cSubclassListView::TextResalteColor(qint32 New_Color) {
    m_estado.TextResalteColor = New_Color;
    RefreshColData();
}

void cSubclassListView::HedersFontBlod(bool New_Value) {
    m_estado.HedersFontBlod = New_Value;
    RefreshColData();
}

void cSubclassListView::RefreshColData() {
    if (!m_lista)
        return;
    m_lista->Refresh();
    Repintar();
}

QString cSubclassListView::GetListviewColumn(HWnd hwnd, int pColumn) const {
    const auto* lista = qobject_cast<const ListView*>(WidgetOf(hwnd));
    const auto itemCabecera = lista ? lista->HeaderItem(pColumn) : std::nullopt;
    if (!itemCabecera)
        return {};
    const QString titulo = itemCabecera->text.left(kTitulo);
    return titulo.left(titulo.indexOf(QChar::Null));
}

void cSubclassListView::Mensaje(Aviso& aviso) {
    if (aviso.hWnd != hWndCabecera || !m_lista)
        return;
    const bool antesPulsado = m_estado.pulsado;
    const bool antesSinResalte = m_estado.sinResalte;
    switch (aviso.uMsg) {
    case WM_LBUTTONDOWN:
        m_estado.pulsado = true;
        break;
    case WM_LBUTTONUP:
        m_estado.pulsado = false;
        m_estado.sinResalte = false;
        break;
    case WM_NCHITTEST:
        m_estado.sinResalte |= m_estado.pulsado;
        break;
    case WM_MOUSEMOVE:
        MoverRaton(PointOf(aviso.lParam));
        break;
    case WM_PAINT:
        Pintar();
        break;
    default:
        break;
    }
    if (m_estado.pulsado != antesPulsado || m_estado.sinResalte != antesSinResalte)
        Repintar();
}

// No message tells that the mouse leaves, so a timer looks while it is over the header.
void cSubclassListView::MoverRaton(QPoint punto) {
    if (!timerActivo) {
        const PlainProc procedimiento = scb_SetCallbackAddr(kParametrosTimer, kAlTocar, &Propias());
        timerActivo = procedimiento && SetTimer(hWndCabecera, IdTimer(), kPeriodo, procedimiento);
    }
    const int columna = ColumnaEn(punto);
    if (columna == m_estado.columnaActiva)
        return;
    m_estado.columnaActiva = columna;
    Repintar();
}

void cSubclassListView::VigilarSalida() {
    if (m_lista && RatonEncima())
        return;
    m_estado.columnaActiva = -1;
    m_estado.sinResalte = false;
    PararTimer();
    Repintar();
}

void cSubclassListView::Pintar() {
    if (m_estado.SkinPicture.isNull())
        return;
    const QRect zona = BeginPaint(hWndCabecera);
    if (zona.isEmpty())
        return;
    QWidget* cabecera = Cabecera().viewport();
    const qreal escala = cabecera->devicePixelRatio();
    QPixmap memoria(QSize(zona.right() + 1, zona.bottom() + 1) * escala);
    memoria.fill(Qt::white);
    memoria.setDevicePixelRatio(escala);
    m_estado.tamanoIcono = m_lista->HeaderIconSize();
    QPainter enMemoria(&memoria);
    PintarCabecera(enMemoria, cabecera->rect(), LeerColumnas(), m_estado);
    enMemoria.end();
    QPainter(cabecera).drawPixmap(0, 0, memoria);
}

std::vector<ColumnaCabecera> cSubclassListView::LeerColumnas() const {
    const QHeaderView& cabecera = Cabecera();
    std::vector<ColumnaCabecera> columnas;
    for (int i = 0; i < cabecera.count(); ++i) {
        const HDITEM itemCabecera = m_lista->HeaderItem(i).value_or(HDITEM());
        columnas.push_back(
            {QRect(cabecera.sectionViewportPosition(i), 0, cabecera.sectionSize(i),
                   cabecera.viewport()->height()),
             GetListviewColumn(hWndLista, i), itemCabecera.fmt,
             itemCabecera.image.pixmap(m_lista->HeaderIconSize(), cabecera.devicePixelRatio())});
    }
    return columnas;
}

QHeaderView& cSubclassListView::Cabecera() const {
    return *m_lista->Header();
}

int cSubclassListView::ColumnaEn(QPoint punto) const {
    const bool dentro = Cabecera().viewport()->rect().contains(punto);
    return dentro ? Cabecera().logicalIndexAt(punto) : -1;
}

// Both are needed: only QWidget::underMouse notices another program's window over the header, and
// only the position of the mouse is right while a button is held.
bool cSubclassListView::RatonEncima() const {
    const QWidget* cabecera = Cabecera().viewport();
    return cabecera->underMouse() && QApplication::widgetAt(QCursor::pos()) == cabecera;
}

quintptr cSubclassListView::IdTimer() const {
    return reinterpret_cast<quintptr>(this) + 1;
}

void cSubclassListView::PonerLetra() {
    m_lista->HeaderFont(m_estado.altoSkin - kJuntoALaLetra);
}

void cSubclassListView::PararTimer() {
    KillTimer(hWndCabecera, IdTimer());
    timerActivo = false;
}

void cSubclassListView::Repintar() {
    if (m_lista)
        Cabecera().viewport()->update();
}

} // namespace explorer

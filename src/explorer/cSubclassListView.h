// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/MensajesVentana.h"
#include "explorer/PinturaCabecera.h"
#include "explorer/Retrollamadas.h"
#include "platform/forms/WindowHandles.h"

#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <vector>

class QHeaderView;

namespace platform {
class ListView;
}

namespace explorer {

/// Paints the column header of a list view with the pieces of a skin, each column normal, under the
/// mouse or pressed. Without a skin the header keeps its own painting.
class cSubclassListView : public MensajesVentana {
public:
    cSubclassListView();
    ~cSubclassListView();

    /// `lhWnd` must be a platform::ListView; any other window is reported and not painted.
    void SubClassListView(platform::HWnd lhWnd);

    /// A bitmap of kCeldas cells, whose height becomes the header's; null for no skin.
    void SkinPicture(const QPixmap& New_Picture);
    const QPixmap& SkinPicture() const { return m_estado.SkinPicture; }
    void IconAlingmentRight(bool New_Value);
    bool IconAlingmentRight() const { return m_estado.IconAlingmentRight; }
    /// Colours are 0x00BBGGRR.
    void TextNormalColor(qint32 New_Color);
    qint32 TextNormalColor() const { return m_estado.TextNormalColor; }
    void TextResalteColor(qint32 New_Color);
    qint32 TextResalteColor() const { return m_estado.TextResalteColor; }
    void HedersFontBlod(bool New_Value);
    bool HedersFontBlod() const { return m_estado.HedersFontBlod; }

    /// Repaints the list and its header.
    void RefreshColData();
    /// The first 32 characters of a column's title, up to a NUL; empty if the column can't be read.
    QString GetListviewColumn(platform::HWnd hwnd, int pColumn) const;

private:
    void Mensaje(Aviso& aviso);
    void MoverRaton(QPoint punto);
    void VigilarSalida();
    void Pintar();
    std::vector<ColumnaCabecera> LeerColumnas() const;
    QHeaderView& Cabecera() const;
    int ColumnaEn(QPoint punto) const;
    bool RatonEncima() const;
    quintptr IdTimer() const;
    void PonerLetra();
    void PararTimer();
    void Repintar();

    platform::HWnd hWndLista = 0;
    platform::HWnd hWndCabecera = 0; ///< 0 unless the list and its header are known
    QPointer<platform::ListView> m_lista;
    bool timerActivo = false;
    EstadoCabecera m_estado;
};

} // namespace explorer

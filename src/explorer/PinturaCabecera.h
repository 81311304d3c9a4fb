// SPDX-License-Identifier: GPL-3.0-or-later
// The painting of a skinned list header, on any painter.
#pragma once

#include "explorer/DisposicionCabecera.h"

#include <QPixmap>
#include <vector>

class QPainter;

namespace explorer {

/// A column of the header, as it is read for each painting.
struct ColumnaCabecera {
    QRect sitio;
    QString titulo;
    int fmt = 0;
    QPixmap imagen; ///< null without an icon
};

/// The properties and the state that the header is painted by.
struct EstadoCabecera {
    /// A null picture for no skin.
    void PonerSkin(const QPixmap& picture);

    QPixmap SkinPicture;
    int altoSkin = 0; ///< this and the next two in pixels
    int anchoSkin = 0;
    int anchoCelda = 0;
    qint32 TextNormalColor = 0; ///< 0x00BBGGRR
    qint32 TextResalteColor = 0;
    bool IconAlingmentRight = false; ///< an icon stands behind its text
    bool HedersFontBlod = false;
    bool sinResalte = false;
    bool pulsado = false;
    int columnaActiva = -1; ///< counted from 0; -1 for none
    QSize tamanoIcono;      ///< empty without icons
};

/// Paints the background over all of `zona` and the columns over it.
void PintarCabecera(QPainter& pintor, const QRect& zona,
                    const std::vector<ColumnaCabecera>& columnas, const EstadoCabecera& estado);

} // namespace explorer

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls/ImageList.h"

namespace explorer {

inline constexpr int kLadoDibujo = 24; // pixels

/// Keys of the pictures.
inline constexpr const char16_t* kDibujoSubir = u"subir";
inline constexpr const char16_t* kDibujoCambiar = u"cambiar";
inline constexpr const char16_t* kDibujoVolver = u"volver";

/// Fills the lists with the pictures of the toolbar: the normal ones and those under the mouse.
void LlenarDibujos(platform::ImageList& ImageListNormal, platform::ImageList& imagelistup);

/// A picture that changes under the mouse.
QIcon DibujoDeBoton(const QIcon& normal, const QIcon& bajoElRaton);

} // namespace explorer

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPixmap>

namespace shell {

/// The pictures of the program, drawn at the size asked for in logical pixels; `escala` is the
/// ratio of device pixels to these.

QIcon Icono();
/// The cover: the product's name over the screen of the console.
QPixmap DibujoPortada(QSize tamano, qreal escala);
/// The quill.
QPixmap DibujoPluma(QSize tamano, qreal escala);
/// The handheld console with a script on its screen.
QPixmap DibujoConsola(QSize tamano, qreal escala);

} // namespace shell

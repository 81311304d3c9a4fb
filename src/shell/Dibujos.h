// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

class QPainter;

namespace shell {

/// The pictures of the program, painted into a rectangle.

/// The cover: the product's name over a script.
void PintarPortada(QPainter& pintor, const QRectF& donde);
/// The quill.
void PintarPluma(QPainter& pintor, const QRectF& donde);
/// The handheld console with a script on its screen.
void PintarConsola(QPainter& pintor, const QRectF& donde);

/// The quill as the program's icon.
QIcon Icono();

} // namespace shell

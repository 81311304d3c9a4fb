// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <span>

namespace assist {

/// One tab of the catalogue: a frame with option buttons, or with an inner frame that holds a list.
struct Pestana {
    const char16_t* rotulo = u"";
    const char* marco = "";
    const char* marcoInterior = nullptr;
    const char16_t* rotuloInterior = u"";
};

/// A call that can be put into a script.
struct EntradaCatalogo {
    size_t pestana = 0;
    const char* control = ""; ///< its option button, or the list that holds it
    const char16_t* rotulo = u"";
    const char16_t* codigo = nullptr; ///< to insert, lines end in CR LF; null for the caption

    QString Rotulo() const { return QString::fromUtf16(rotulo); }
    QString Codigo() const { return QString::fromUtf16(codigo ? codigo : rotulo); }
};

std::span<const Pestana> Pestanas();
/// All entries, in the order in which their tabs show them.
std::span<const EntradaCatalogo> Catalogo();

} // namespace assist

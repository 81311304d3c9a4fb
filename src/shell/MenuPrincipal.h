// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace shell {

class MDIForm1;

/// One entry of the main window's menu. A caption of "-" is a separator; "&" marks the access key.
struct EntradaMenu {
    int nivel = 0; ///< 0: in the menu bar; n: child of the last entry of level n - 1
    const char* nombre = "";
    const char16_t* texto = u"";
    const char* tecla = "";
    void (MDIForm1::*accion)() = nullptr;
    /// Enabled only while a document is open.
    bool conDocumento = false;
    bool visible = true;
    /// Repeats while its key is held down.
    bool seRepite = false;
};

/// The whole menu, in order.
std::span<const EntradaMenu> MenuPrincipal();

} // namespace shell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace assist {

class Form5;

/// What the two windows of the coordinates tool ask of the main window, which keeps both.
class MarcoCoordenadas {
public:
    virtual ~MarcoCoordenadas() = default;

    /// Form5, loaded if it isn't, but not shown.
    virtual Form5& Form5Cargado() = 0;
    /// Shows Form6 and brings it to the front.
    virtual void MostrarForm6() = 0;
};

} // namespace assist

// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/EntradaRetrollamada.h"

namespace explorer {

qint32 EntradaRetrollamada::Llamar(std::span<const qint32> valores) const {
    const auto vivo = dueno.lock();
    if (!vivo || valores.size() != parametros)
        return 0;
    qint32 resultado = 0;
    (*metodo)(valores, resultado);
    return resultado;
}

} // namespace explorer

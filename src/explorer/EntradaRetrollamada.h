// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/Retrollamadas.h"
#include "platform/forms/WindowTimers.h"

#include <memory>
#include <span>

namespace explorer {

/// A method of an owner that a plain procedure calls.
struct EntradaRetrollamada {
    /// The method's result; 0 if its owner is gone or `valores` hasn't `parametros` values.
    qint32 Llamar(std::span<const qint32> valores) const;

    std::weak_ptr<const void> dueno;
    const Retrollamadas::Metodo* metodo = nullptr; ///< valid while the owner is there
    size_t parametros = 0;
    platform::PlainProc procedimiento;
};

} // namespace explorer

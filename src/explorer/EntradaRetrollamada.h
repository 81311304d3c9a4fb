// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/Retrollamadas.h"
#include "platform/forms/WindowTimers.h"

#include <memory>
#include <span>

namespace explorer {

/// A method of an owner that a plain procedure calls.
struct EntradaRetrollamada {
    /// What the method answers; 0 if its owner has gone or the number of values is another one.
    qint32 Llamar(std::span<const qint32> valores) const;

    std::weak_ptr<const void> dueno;
    const Retrollamadas::Metodo* metodo = nullptr; ///< valid while the owner is there
    size_t parametros = 0;
    platform::PlainProc procedimiento;
};

} // namespace explorer

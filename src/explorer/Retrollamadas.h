// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/WindowHandles.h"

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <utility>

namespace explorer {

/// A message as callbacks get it: the same object before and after the window's own handling.
struct Aviso {
    bool bBefore;   ///< before the window's own handling
    bool bHandled;  ///< if set before: the window doesn't handle it and there is no phase after
    qint32 lReturn; ///< the result: the owner's if it handled the message, else the window's
    const platform::HWnd hWnd;
    const quint32 uMsg;
    const qint32 wParam;
    const qint32 lParam;
    qint32& lParamUser; ///< the owner's own, kept between the calls
};

/// The callbacks of an owner, by ordinals that it chooses. A member of the owner: once it is
/// destroyed, none is called any more.
class Retrollamadas {
public:
    using Mensaje = std::function<void(Aviso&)>;
    using Metodo = std::function<void(std::span<const qint32> valores, qint32& resultado)>;

    Retrollamadas() = default;
    Retrollamadas(const Retrollamadas&) = delete;
    Retrollamadas& operator=(const Retrollamadas&) = delete;

    /// Ignored if the ordinal has one already.
    void Poner(int ordinal, Mensaje mensaje) {
        m_tabla->mensajes.emplace(ordinal, std::move(mensaje));
    }
    void Poner(int ordinal, Metodo metodo) { m_tabla->metodos.emplace(ordinal, std::move(metodo)); }

    /// Null if the ordinal has none.
    const Mensaje* BuscarMensaje(int ordinal) const { return Buscar(m_tabla->mensajes, ordinal); }
    const Metodo* BuscarMetodo(int ordinal) const { return Buscar(m_tabla->metodos, ordinal); }
    /// Pointers from the Buscar functions are valid while this can be locked.
    std::weak_ptr<const void> Vida() const { return m_tabla; }

private:
    struct Tabla {
        std::map<int, Mensaje> mensajes;
        std::map<int, Metodo> metodos;
    };
    template<class Mapa>
    static const typename Mapa::mapped_type* Buscar(const Mapa& mapa, int ordinal) {
        const auto hallado = mapa.find(ordinal);
        return hallado == mapa.end() ? nullptr : &hallado->second;
    }

    std::shared_ptr<Tabla> m_tabla = std::make_shared<Tabla>();
};

} // namespace explorer

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/Retrollamadas.h"
#include "platform/forms/WindowHandles.h"
#include "platform/forms/WindowMessages.h"

#include <array>
#include <memory>
#include <span>

namespace explorer {

inline constexpr qint32 MSG_ENTRIES = 32;
inline constexpr qint32 ALL_MESSAGES = -1;

/// The numbers of the messages that are wanted before, or after, the window's own handling.
struct TablaMensajes {
    qint32 cuenta = 0;                           ///< slots that were ever used, or ALL_MESSAGES
    std::array<quint32, MSG_ENTRIES> casillas{}; ///< 0: freed

    std::span<quint32> Usadas();
    bool Quiere(quint32 uMsg) const;
};

enum class Cierre { Ninguno, Pedido, VentanaDestruida };

/// Runs in front of a window's procedure and calls the owner for the messages that it wants. The
/// window keeps it alive; once released it removes itself when its outermost call returns.
class EntradaMensajes : public platform::WindowProcedure {
public:
    qint32 Call(platform::HWnd hWnd, quint32 uMsg, qint32 wParam, qint32 lParam) override;
    /// Calls the owner no more and removes itself from the window as soon as it can.
    void Soltar();

    platform::HWnd ventana = 0; ///< 0 after its removal
    std::weak_ptr<const void> dueno;
    const Retrollamadas::Mensaje* retrollamada = nullptr; ///< valid while the owner is there
    platform::WindowProc procAnterior;
    TablaMensajes tablaAntes;
    TablaMensajes tablaDespues;
    qint32 valorUsuario = 0;

private:
    void Ofrecer(const TablaMensajes& tabla, Aviso& aviso) const;
    void Salir();

    qint32 enUso = 0; ///< calls in progress
    Cierre cierre = Cierre::Ninguno;
};

} // namespace explorer

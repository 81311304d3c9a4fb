// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/EntradaMensajes.h"

#include "platform/forms/Handler.h"

#include <algorithm>

namespace explorer {

std::span<quint32> TablaMensajes::Usadas() {
    return std::span(casillas).first(static_cast<size_t>(std::max(cuenta, 0)));
}

bool TablaMensajes::Quiere(quint32 uMsg) const {
    if (cuenta <= 0)
        return cuenta == ALL_MESSAGES;
    const auto fin = casillas.begin() + cuenta;
    return uMsg != 0 && std::find(casillas.begin(), fin, uMsg) != fin; // 0 is a freed slot
}

qint32 EntradaMensajes::Call(platform::HWnd hWnd, quint32 uMsg, qint32 wParam, qint32 lParam) {
    ++enUso;
    Aviso aviso{true, false, 0, hWnd, uMsg, wParam, lParam, valorUsuario};
    Ofrecer(tablaAntes, aviso);
    const bool destruida = uMsg == platform::WM_DESTROY;
    if (destruida)
        cierre = Cierre::VentanaDestruida;
    if (destruida || !aviso.bHandled) {
        aviso.lReturn = procAnterior->Call(hWnd, uMsg, wParam, lParam);
        aviso.bBefore = false;
        if (enUso > 1 || cierre == Cierre::Ninguno)
            Ofrecer(tablaDespues, aviso);
    }
    if (--enUso == 0 && cierre != Cierre::Ninguno)
        Salir();
    return aviso.lReturn;
}

void EntradaMensajes::Soltar() {
    if (ventana == 0)
        return;
    cierre = Cierre::Pedido;
    tablaAntes = {};
    tablaDespues = {};
    platform::SendMessage(ventana, platform::WM_NULL);
}

void EntradaMensajes::Ofrecer(const TablaMensajes& tabla, Aviso& aviso) const {
    if (!tabla.Quiere(aviso.uMsg))
        return;
    if (const auto vivo = dueno.lock())
        platform::RunHandler([&] { (*retrollamada)(aviso); });
}

// If a later procedure calls this one, this one stays and only passes messages on: restoring the
// former procedure would drop the later one from the window.
void EntradaMensajes::Salir() {
    tablaAntes = {};
    tablaDespues = {};
    const platform::WindowProc actual = platform::GetWindowProc(ventana);
    if (actual && actual.get() != this)
        return;
    if (actual)
        platform::SetWindowProc(ventana, procAnterior);
    ventana = 0;
}

} // namespace explorer

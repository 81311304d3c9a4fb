// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/MensajesVentana.h"

#include "platform/base/Log.h"
#include "platform/forms/Dialogs.h"
#include "platform/forms/WindowMessages.h"

#include <algorithm>
#include <cerrno>
#include <memory_resource>
#include <new>
#include <span>
#include <utility>

namespace explorer {
namespace {

constexpr int kTipoVentana = 0;
constexpr int kTipoRetrollamada = 2; // 1, the hook, is never made

// Allocates from the default std::pmr resource, which a test can make fail.
template<class Valor>
std::shared_ptr<Valor> Reservar() {
    try {
        return std::allocate_shared<Valor>(std::pmr::polymorphic_allocator<Valor>());
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

QString SinMemoria() {
    return QStringLiteral("VirtualAlloc failed, error: %1").arg(ENOMEM);
}

} // namespace

MensajesVentana::MensajesVentana(QString tipo) : m_tipo(std::move(tipo)) {}

MensajesVentana::~MensajesVentana() {
    ssc_UnhookAll();
    scb_ReleaseAll();
}

bool MensajesVentana::ssc_Subclass(platform::HWnd hWnd, qint32 valorUsuario, int ordinal,
                                   const Retrollamadas* dueno) {
    const auto fallo = [this](const QString& mensaje) {
        Informar(QStringLiteral("ssc_Subclass"), mensaje);
        return false;
    };
    if (!platform::IsWindow(hWnd))
        return fallo(QStringLiteral("Invalid window handle"));
    if (platform::IsForeign(hWnd))
        return fallo(QStringLiteral("Window handle belongs to another process"));
    if (!dueno)
        dueno = &m_propias;
    const Retrollamadas::Mensaje* retrollamada = dueno->BuscarMensaje(ordinal);
    if (!retrollamada)
        return fallo(QStringLiteral("Callback method not found"));
    const auto entrada = Reservar<EntradaMensajes>();
    if (!entrada)
        return fallo(SinMemoria());
    if (!m_ventanas.Agregar(hWnd, entrada))
        return fallo(QStringLiteral("Window handle is already subclassed"));
    entrada->ventana = hWnd;
    entrada->dueno = dueno->Vida();
    entrada->retrollamada = retrollamada;
    entrada->valorUsuario = valorUsuario;
    entrada->procAnterior = platform::SetWindowProc(hWnd, entrada);
    if (entrada->procAnterior)
        return true;
    const int error = errno;
    m_ventanas.Quitar(hWnd);
    return fallo(QStringLiteral("SetWindowLong failed, error #%1").arg(error));
}

void MensajesVentana::ssc_WatchMsg(platform::HWnd hWnd, qint32 mensaje, int cuando) {
    const auto entrada = Entrada(hWnd);
    if (entrada && (cuando & MSG_BEFORE))
        zAddMsg(entrada->tablaAntes, mensaje);
    if (entrada && (cuando & MSG_AFTER))
        zAddMsg(entrada->tablaDespues, mensaje);
}

void MensajesVentana::ssc_UnwatchMsg(platform::HWnd hWnd, qint32 mensaje, int cuando) {
    const auto entrada = Entrada(hWnd);
    if (entrada && (cuando & MSG_BEFORE))
        zDelMsg(entrada->tablaAntes, mensaje);
    if (entrada && (cuando & MSG_AFTER))
        zDelMsg(entrada->tablaDespues, mensaje);
}

qint32 MensajesVentana::ssc_CallPrevious(platform::HWnd hWnd, quint32 uMsg, qint32 wParam,
                                         qint32 lParam) {
    const auto entrada = Entrada(hWnd);
    return entrada ? entrada->procAnterior->Call(hWnd, uMsg, wParam, lParam) : 0;
}

qint32 MensajesVentana::ssc_UserValue(platform::HWnd hWnd) const {
    const auto entrada = Entrada(hWnd);
    return entrada ? entrada->valorUsuario : 0;
}

void MensajesVentana::ssc_UserValue(platform::HWnd hWnd, qint32 valor) {
    if (const auto entrada = Entrada(hWnd))
        entrada->valorUsuario = valor;
}

void MensajesVentana::ssc_Unhook(platform::HWnd hWnd) {
    const auto entrada = Entrada(hWnd);
    m_ventanas.Quitar(hWnd);
    if (entrada)
        entrada->Soltar();
}

void MensajesVentana::ssc_UnhookAll() {
    auto entradas = m_ventanas.SacarTodas();
    for (; !entradas.empty(); entradas.pop_back())
        entradas.back().second->Soltar();
}

platform::PlainProc MensajesVentana::scb_SetCallbackAddr(int parametros, int ordinal,
                                                         const Retrollamadas* dueno) {
    const auto fallo = [this](const QString& mensaje) {
        Informar(QStringLiteral("scb_SetCallbackAddr"), mensaje);
        return nullptr;
    };
    if (const auto hecha = m_retrollamadas.Hallar(ordinal))
        return hecha->procedimiento;
    if (parametros < 0)
        return fallo(QStringLiteral("Invalid Parameter count"));
    if (!dueno)
        dueno = &m_propias;
    const Retrollamadas::Metodo* metodo = dueno->BuscarMetodo(ordinal);
    if (!metodo)
        return fallo(QStringLiteral("Callback address not found."));
    const auto entrada = Reservar<EntradaRetrollamada>();
    if (!entrada)
        return fallo(SinMemoria());
    m_retrollamadas.Agregar(ordinal, entrada);
    entrada->dueno = dueno->Vida();
    entrada->metodo = metodo;
    entrada->parametros = static_cast<size_t>(parametros);
    entrada->procedimiento = std::make_shared<platform::PlainProcedure>(
        [debil = std::weak_ptr(entrada)](std::span<const qint32> valores) {
            const auto viva = debil.lock();
            return viva ? viva->Llamar(valores) : 0;
        });
    return entrada->procedimiento;
}

void MensajesVentana::scb_Release(int ordinal) {
    if (zMap_VFunction(ordinal, kTipoRetrollamada))
        m_retrollamadas.Quitar(ordinal);
}

void MensajesVentana::scb_ReleaseAll() {
    m_retrollamadas.SacarTodas();
}

bool MensajesVentana::zMap_VFunction(qint64 id, int tipo) const {
    if (tipo < kTipoVentana || tipo > kTipoRetrollamada) {
        Informar(QStringLiteral("zMap_Vfunction"), QStringLiteral("Invalid thunk type passed"));
        return false;
    }
    const bool deVentana = tipo == kTipoVentana;
    const bool deRetrollamada = tipo == kTipoRetrollamada;
    const bool hecha =
        (deVentana && m_ventanas.Hecha()) || (deRetrollamada && m_retrollamadas.Hecha());
    const bool hallada =
        (deVentana && m_ventanas.Hallar(id)) || (deRetrollamada && m_retrollamadas.Hallar(id));
    const QString rutina = QStringLiteral("zMap_VFunction");
    if (!hecha)
        Informar(rutina, QStringLiteral("Thunk hasn't been initialized"));
    else if (!hallada)
        Informar(rutina, QStringLiteral("Thunk type for ID of %1 does not exist").arg(id));
    return hallada;
}

std::shared_ptr<EntradaMensajes> MensajesVentana::Entrada(platform::HWnd hWnd) const {
    return zMap_VFunction(hWnd, kTipoVentana) ? m_ventanas.Hallar(hWnd) : nullptr;
}

void MensajesVentana::zAddMsg(TablaMensajes& tabla, qint32 mensaje) const {
    if (mensaje == ALL_MESSAGES) {
        tabla.cuenta = ALL_MESSAGES;
        return;
    }
    if (tabla.cuenta >= MSG_ENTRIES) {
        Informar(QStringLiteral("zAddMsg"),
                 QStringLiteral("Message table overflow. Either increase the value of Const "
                                "MSG_ENTRIES or use ALL_MESSAGES instead of specific message "
                                "values"));
        return;
    }
    const auto numero = static_cast<quint32>(mensaje);
    for (quint32& casilla : tabla.Usadas()) {
        if (casilla == numero)
            return;
        if (casilla == 0) {
            casilla = numero;
            return;
        }
    }
    tabla.cuenta = std::max(tabla.cuenta, 0) + 1;
    tabla.Usadas().back() = numero;
}

void MensajesVentana::zDelMsg(TablaMensajes& tabla, qint32 mensaje) const {
    if (mensaje == ALL_MESSAGES) {
        tabla.cuenta = 0;
        return;
    }
    const auto numero = static_cast<quint32>(mensaje);
    const auto usadas = tabla.Usadas();
    const auto casilla = std::ranges::find(usadas, numero);
    if (casilla != usadas.end()) {
        *casilla = 0;
        return;
    }
    Informar(QStringLiteral("zDelMsg"), QStringLiteral("Message &H%1 not found in table")
                                            .arg(QString::number(numero, 16).toUpper()));
}

void MensajesVentana::Informar(const QString& rutina, const QString& mensaje) const {
    const QString lugar = m_tipo + u'.' + rutina;
    qCCritical(platform::lcQuillmark).noquote() << lugar + QStringLiteral(": ") + mensaje;
    platform::MsgBox(mensaje + u'.', platform::Buttons::Ok, platform::Icon::Exclamation,
                     QStringLiteral("Error in ") + lugar);
}

} // namespace explorer

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/Coleccion.h"
#include "explorer/EntradaMensajes.h"
#include "explorer/EntradaRetrollamada.h"
#include "explorer/Retrollamadas.h"
#include "platform/forms/WindowHandles.h"
#include "platform/forms/WindowTimers.h"

#include <QString>
#include <memory>

namespace explorer {

/// The phases for ssc_WatchMsg and ssc_UnwatchMsg: before or after the window's own handling.
inline constexpr int MSG_BEFORE = 1;
inline constexpr int MSG_AFTER = 2;
inline constexpr int MSG_BEFORE_AFTER = 3;

/// Lets an object see the messages of windows that it doesn't own, and makes plain procedures out
/// of its methods. A failure is shown and logged, and the call returns false, 0 or null. Base or
/// member of the object; a derived class calls ssc_UnhookAll and scb_ReleaseAll in its destructor.
class MensajesVentana {
public:
    /// `tipo` names the object's type in the reports.
    explicit MensajesVentana(QString tipo);
    ~MensajesVentana();
    MensajesVentana(const MensajesVentana&) = delete;
    MensajesVentana& operator=(const MensajesVentana&) = delete;

    /// This object's own callbacks, used if `dueno` is null.
    Retrollamadas& Propias() { return m_propias; }

    /// Fails if this object watches the window already, for whatever owner.
    bool ssc_Subclass(platform::HWnd hWnd, qint32 valorUsuario = 0, int ordinal = 1,
                      const Retrollamadas* dueno = nullptr);
    /// `mensaje` is a number or ALL_MESSAGES.
    void ssc_WatchMsg(platform::HWnd hWnd, qint32 mensaje, int cuando = MSG_AFTER);
    void ssc_UnwatchMsg(platform::HWnd hWnd, qint32 mensaje, int cuando = MSG_AFTER);
    /// Passes the message to the window's former procedure and returns its result.
    qint32 ssc_CallPrevious(platform::HWnd hWnd, quint32 uMsg, qint32 wParam, qint32 lParam);
    qint32 ssc_UserValue(platform::HWnd hWnd) const;
    void ssc_UserValue(platform::HWnd hWnd, qint32 valor);
    void ssc_Unhook(platform::HWnd hWnd);
    void ssc_UnhookAll();

    /// A plain procedure with that number of values, always the same one for an ordinal; null on
    /// failure. It does nothing if it is called with another number of values, after its release or
    /// without its owner.
    platform::PlainProc scb_SetCallbackAddr(int parametros, int ordinal,
                                            const Retrollamadas* dueno = nullptr);
    void scb_Release(int ordinal);
    void scb_ReleaseAll();

    /// True if there is an entry for a window (`tipo` 0) or for the ordinal of a callback (2); if
    /// not, reports it.
    bool zMap_VFunction(qint64 id, int tipo) const;

private:
    std::shared_ptr<EntradaMensajes> Entrada(platform::HWnd hWnd) const;
    void zAddMsg(TablaMensajes& tabla, qint32 mensaje) const;
    void zDelMsg(TablaMensajes& tabla, qint32 mensaje) const;
    void Informar(const QString& rutina, const QString& mensaje) const;

    QString m_tipo;
    Retrollamadas m_propias;
    Coleccion<EntradaMensajes> m_ventanas;          ///< by window
    Coleccion<EntradaRetrollamada> m_retrollamadas; ///< by ordinal
};

} // namespace explorer

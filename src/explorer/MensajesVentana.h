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

/// The phases of a message that ssc_WatchMsg and ssc_UnwatchMsg mean; they may be combined.
inline constexpr int MSG_BEFORE = 1;
inline constexpr int MSG_AFTER = 2;
inline constexpr int MSG_BEFORE_AFTER = 3;

/// Lets an object see the messages of windows that it doesn't own, and makes plain procedures out
/// of its methods. What goes wrong is shown and logged and answered with false, 0 or nothing.
/// Base or member of the object; a derived class calls ssc_UnhookAll and scb_ReleaseAll before its
/// own parts go.
class MensajesVentana {
public:
    /// `tipo` names the object's type in the reports.
    explicit MensajesVentana(QString tipo);
    ~MensajesVentana();
    MensajesVentana(const MensajesVentana&) = delete;
    MensajesVentana& operator=(const MensajesVentana&) = delete;

    /// This object's callbacks: used where no owner is given.
    Retrollamadas& Propias() { return m_propias; }

    /// One object can watch a window only once, whoever the owner is.
    bool ssc_Subclass(platform::HWnd hWnd, qint32 valorUsuario = 0, int ordinal = 1,
                      const Retrollamadas* dueno = nullptr);
    /// `mensaje` is a number or ALL_MESSAGES.
    void ssc_WatchMsg(platform::HWnd hWnd, qint32 mensaje, int cuando = MSG_AFTER);
    void ssc_UnwatchMsg(platform::HWnd hWnd, qint32 mensaje, int cuando = MSG_AFTER);
    /// What the window would have answered without this object.
    qint32 ssc_CallPrevious(platform::HWnd hWnd, quint32 uMsg, qint32 wParam, qint32 lParam);
    qint32 ssc_UserValue(platform::HWnd hWnd) const;
    void ssc_UserValue(platform::HWnd hWnd, qint32 valor);
    void ssc_Unhook(platform::HWnd hWnd);
    void ssc_UnhookAll();

    /// A plain procedure of so many values, the same one each time for an ordinal; null on failure.
    /// Called with another number of values, after its release or without its owner, it does
    /// nothing.
    platform::PlainProc scb_SetCallbackAddr(int parametros, int ordinal,
                                            const Retrollamadas* dueno = nullptr);
    void scb_Release(int ordinal);
    void scb_ReleaseAll();

    /// Whether there is an entry of a window (type 0) or of a callback's ordinal (type 2); without
    /// one it is reported.
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

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/MenuArray.h"

#include <QString>
#include <QStringList>

namespace shell {

/// The list of the files opened last, the latest first, kept in the user's settings and shown as
/// menu entries. It also holds the program's open dialog.
class Class1 {
public:
    quint8 Count() const { return cantidad_maxima; }
    /// The most paths that are kept. Set it before Init, which reads that many.
    void Count(quint8 Cantidad) { cantidad_maxima = Cantidad; }

    /// Both menu references must outlive this object.
    void Init(platform::MenuArray& MenuReciente, QAction& MenuSeparador);
    /// Puts the path at the front and stores the list, merged with what other copies have stored.
    void NuevoElemento(const QString& Ruta_Archivo);
    /// The path at the position, from 1; empty where there is none.
    QString ObtenerPath(int indice_Menu) const;
    /// Empties list and store and hides the entries.
    void EliminarLista();
    /// The chosen path, empty if cancelled. `Filtro`: name, pattern, name..., separated by NULs.
    QString CommonDialog_Abrir(QWidget* Hwnd_form, const QString& Filtro = {},
                               const QString& path_Inicial = {},
                               const QString& Dialog_title = {}) const;

    /// The part of a path after its last "\".
    static QString NombreArchivo(const QString& ruta);

private:
    void ActualizarMenu();
    QStringList ListaGuardada() const;
    void GuardarLista() const;

    QStringList lista_recientes;
    quint8 cantidad_maxima = 0;
    platform::MenuArray* MenuReciente = nullptr;
    QAction* MenuSeparador = nullptr;
};

} // namespace shell

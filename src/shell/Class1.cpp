// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Class1.h"

#include "platform/base/Failure.h"
#include "platform/desktop/UserSettings.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/Dialogs.h"
#include "platform/text/NativeNames.h"
#include "shared/Module1.h"

#include <algorithm>
#include <utility>

namespace shell {
namespace {

const QString kAplicacion = QStringLiteral("Accesos Recientes");
const QString kSeccion = QStringLiteral("Lista");
const QString kFiltro = QStringLiteral("Archivos Quillmark (*.qmk)\0*.qmk\0"
                                       "Archivos LUA (*.lua)\0*.lua");
const QString kTitulo = QStringLiteral(" Abrir archivo ... ");
constexpr int kEntradas = 25;

} // namespace

void Class1::Init(platform::MenuArray& menuReciente, QAction& menuSeparador) {
    while (menuReciente.Count() < kEntradas) {
        menuReciente.Load();
        menuReciente(menuReciente.Count()).setVisible(false);
    }
    lista_recientes = ListaGuardada();
    MenuReciente = MenuReciente ? MenuReciente : &menuReciente;
    MenuSeparador = MenuSeparador ? MenuSeparador : &menuSeparador;
    ActualizarMenu();
}

void Class1::NuevoElemento(const QString& Ruta_Archivo) {
    // Another copy of the program may have stored paths since.
    QStringList lista = ListaGuardada();
    for (const QString& ruta : std::as_const(lista_recientes)) {
        if (!lista.contains(ruta))
            lista.append(ruta);
    }
    lista_recientes = lista;
    lista_recientes.removeAll(Ruta_Archivo);
    lista_recientes.prepend(Ruta_Archivo);
    while (lista_recientes.size() > cantidad_maxima)
        lista_recientes.removeLast();
    ActualizarMenu();
    GuardarLista();
}

QString Class1::ObtenerPath(int indice_Menu) const {
    return lista_recientes.value(indice_Menu - 1);
}

void Class1::EliminarLista() {
    try {
        platform::DeleteSetting(kAplicacion, kSeccion);
    } catch (const platform::Failure&) {
        // There was nothing to delete.
    }
    for (int i = 1; i <= MenuReciente->Count(); ++i)
        (*MenuReciente)(i).setVisible(false);
    lista_recientes.clear();
    MenuSeparador->setVisible(false);
}

QString Class1::CommonDialog_Abrir(QWidget* Hwnd_form, const QString& Filtro,
                                   const QString& path_Inicial, const QString& Dialog_title) const {
    const platform::FileQuestion pregunta{
        Hwnd_form, Dialog_title.isEmpty() ? kTitulo : Dialog_title, path_Inicial,
        platform::FilterPairs(Filtro.isEmpty() ? kFiltro : Filtro, QChar(u'\0'))};
    return Module1::SinBlancos(
        platform::CurrentDialogs().AskOpenName(pregunta).remove(QChar(u'\0')));
}

QString Class1::NombreArchivo(const QString& ruta) {
    return ruta.section(u'\\', -1);
}

void Class1::ActualizarMenu() {
    const int visibles = std::min<int>(static_cast<int>(lista_recientes.size()), kEntradas);
    for (int i = 1; i <= visibles; ++i) {
        QString nombre = platform::DisplayText(NombreArchivo(lista_recientes.at(i - 1)));
        nombre.replace(u'&', QStringLiteral("&&")); // a single & would mark an access key
        (*MenuReciente)(i).setText(QStringLiteral("%1 %2").arg(i).arg(nombre));
        (*MenuReciente)(i).setVisible(true);
    }
    MenuSeparador->setVisible((*MenuReciente)(1).isVisible());
}

QStringList Class1::ListaGuardada() const {
    QStringList lista;
    for (int i = 1; i <= cantidad_maxima; ++i) {
        const QString ruta =
            platform::GetSetting(kAplicacion, kSeccion, QString::number(i), QString());
        if (ruta.isEmpty())
            break;
        lista.append(ruta);
    }
    return lista;
}

void Class1::GuardarLista() const {
    QMap<QString, QString> claves;
    for (qsizetype i = 1; i <= std::max<qsizetype>(lista_recientes.size(), cantidad_maxima); ++i)
        claves.insert(QString::number(i), lista_recientes.value(i - 1)); // null deletes the key
    platform::SaveSettings(kAplicacion, kSeccion, claves);
}

} // namespace shell

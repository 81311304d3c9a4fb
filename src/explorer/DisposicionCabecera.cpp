// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/DisposicionCabecera.h"

#include "core/Rounding.h"

#include <array>

namespace explorer {
namespace {

constexpr int kMargen = 9;
constexpr int kMargenIcono = 5;

struct Formato {
    int fmt = 0;
    Caso caso;
};
constexpr std::array<Formato, 7> kFormatos = {{{0, {Caso::Izquierda, false}},
                                               {16384, {Caso::Izquierda, false}},
                                               {16385, {Caso::Derecha, false}},
                                               {16386, {Caso::Centro, false}},
                                               {18432, {Caso::Izquierda, true}},
                                               {18433, {Caso::Derecha, true}},
                                               {18434, {Caso::Centro, true}}}};

constexpr Aspecto kNormal = {0, std::nullopt, 2, false, 0, 1};
constexpr Aspecto kBajoElRaton = {3, 4, 5, true, 0, 1};
constexpr Aspecto kPulsado = {6, 7, 8, true, 1, 3};

struct EnX {
    int texto;
    int icono;
};

EnX SinIcono(int izquierda, int derecha, int ancho, Caso::Lado lado) {
    const double centro = izquierda + (derecha - izquierda) / 2.0;
    switch (lado) {
    case Caso::Izquierda:
        return {izquierda + kMargen, 0};
    case Caso::Derecha:
        return {derecha - ancho - kMargen, 0};
    default:
        return {Redondeado(centro - ancho / 2.0), 0};
    }
}

EnX IconoDelante(int izquierda, int derecha, int ancho, int icono, Caso::Lado lado) {
    const double centro = izquierda + (derecha - izquierda) / 2.0;
    if (lado == Caso::Izquierda)
        return {izquierda + kMargen + icono + kMargen, izquierda + kMargen};
    const int texto = lado == Caso::Derecha ? derecha - ancho - kMargen
                                            : Redondeado(centro - ancho / 2.0 + icono - kMargen);
    return {texto, texto - icono - kMargen};
}

EnX IconoDetras(int izquierda, int derecha, int ancho, int icono, Caso::Lado lado) {
    const double centro = izquierda + (derecha - izquierda) / 2.0;
    switch (lado) {
    case Caso::Izquierda:
        return {izquierda + kMargen, izquierda + kMargen + ancho};
    case Caso::Derecha:
        return {derecha - ancho - icono - kMargen, derecha - icono - kMargen};
    default:
        return {Redondeado(centro - ancho / 2.0 - kMargen),
                Redondeado(centro + ancho / 2.0 - kMargen)};
    }
}

} // namespace

int Redondeado(double valor) {
    return static_cast<int>(core::RoundHalfEven(valor));
}

int AnchoCelda(int anchoSkin) {
    return Redondeado(anchoSkin / static_cast<double>(kCeldas));
}

std::optional<Caso> CasoDe(int fmt) {
    for (const Formato& formato : kFormatos) {
        if (formato.fmt == fmt)
            return formato.caso;
    }
    return std::nullopt;
}

Posiciones Disponer(const Columna& columna, const Caso& caso, bool iconoDerecha) {
    const int izquierda = columna.sitio.left();
    const int derecha = izquierda + columna.sitio.width();
    const int abajo = columna.sitio.top() + columna.sitio.height();
    const int texto = columna.texto.width();
    const int icono = columna.icono.width();
    EnX enX = SinIcono(izquierda, derecha, texto, caso.lado);
    if (caso.icono)
        enX = iconoDerecha ? IconoDetras(izquierda, derecha, texto, icono, caso.lado)
                           : IconoDelante(izquierda, derecha, texto, icono, caso.lado);
    const auto enY = [abajo](int alto) { return Redondeado(abajo / 2.0 - alto / 2.0); };
    const bool cabe = icono <= columna.sitio.width() - kMargenIcono && enX.icono >= izquierda;
    return {{enX.texto, enY(columna.texto.height())},
            {enX.icono, enY(columna.icono.height())},
            caso.icono && cabe};
}

int AnchoTitulo(const Columna& columna, const Caso& caso) {
    return columna.sitio.width() - 2 * kMargen - (caso.icono ? columna.icono.width() : 0);
}

QString Recortar(QString titulo, int ancho, const std::function<int(const QString&)>& medir) {
    if (medir(titulo) <= ancho)
        return titulo;
    const QString puntos = QStringLiteral("...");
    const int resto = ancho - medir(puntos);
    while (medir(titulo) > resto) {
        const bool doble = titulo.size() > 1 && titulo.back().isLowSurrogate();
        titulo.chop(doble ? 2 : 1);
        if (titulo.isEmpty())
            return titulo;
    }
    return titulo + puntos;
}

const Aspecto& AspectoDe(bool activa, bool sinResalte, bool pulsado) {
    if (!activa || sinResalte)
        return kNormal;
    return pulsado ? kPulsado : kBajoElRaton;
}

} // namespace explorer

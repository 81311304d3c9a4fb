// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/PinturaCabecera.h"

#include "platform/controls/FontOfHeight.h"

#include <QApplication>
#include <QPainter>

namespace explorer {
namespace {

constexpr int kAltoLetra = 14; // pixels
constexpr int kFondo = 1;      // x in the skin at which the background strip begins, pixels
constexpr double kMezclado = 0.5;
constexpr int kEstiloMezclado = 3;

QColor Color(qint32 color) {
    return {color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF};
}

// Draws the parts of one column.
class Trazo {
public:
    Trazo(QPainter& pintor, const EstadoCabecera& estado, const ColumnaCabecera& columna,
          const Aspecto& aspecto)
        : m_pintor(pintor),
          m_estado(estado),
          m_sitio(columna.sitio),
          m_aspecto(aspecto),
          m_celda(estado.anchoCelda) {}

    void Medio() {
        if (m_aspecto.medio)
            Celda(*m_aspecto.medio, m_sitio.left() + m_celda, m_sitio.width() - 2 * m_celda);
    }

    void Icono(const QPixmap& imagen, QPoint punto) {
        m_pintor.setOpacity(m_aspecto.estiloIcono == kEstiloMezclado ? kMezclado : 1);
        m_pintor.drawPixmap(QRect(punto + Desplazamiento(), m_estado.tamanoIcono), imagen);
        m_pintor.setOpacity(1);
    }

    void Texto(const QString& texto, QPoint punto) {
        m_pintor.setPen(
            Color(m_aspecto.resaltado ? m_estado.TextResalteColor : m_estado.TextNormalColor));
        const QPoint base(0, m_pintor.fontMetrics().ascent());
        m_pintor.drawText(punto + Desplazamiento() + base, texto);
    }

    void Extremos() {
        Celda(m_aspecto.izquierda, m_sitio.left(), m_celda);
        Celda(m_aspecto.derecha, m_sitio.left() + m_sitio.width() - m_celda, m_celda);
    }

private:
    QPoint Desplazamiento() const { return {m_aspecto.desplazamiento, m_aspecto.desplazamiento}; }
    void Celda(int celda, int izquierda, int ancho) {
        const int alto = m_sitio.top() + m_sitio.height();
        if (ancho > 0)
            m_pintor.drawPixmap(QRect(izquierda, 0, ancho, alto), m_estado.SkinPicture,
                                QRect(celda * m_celda, 0, m_celda, m_estado.altoSkin));
    }

    QPainter& m_pintor;
    const EstadoCabecera& m_estado;
    QRect m_sitio;
    const Aspecto& m_aspecto;
    int m_celda;
};

// 14 pixels high in normal weight, or the desktop's font in bold.
QFont LetraCabecera(bool negrita) {
    QFont letra = negrita ? QApplication::font() : platform::FontOfHeight(kAltoLetra);
    letra.setWeight(negrita ? QFont::Bold : QFont::Normal);
    return letra;
}

} // namespace

void EstadoCabecera::PonerSkin(const QPixmap& picture) {
    SkinPicture = picture;
    altoSkin = picture.height();
    anchoSkin = picture.width();
    anchoCelda = AnchoCelda(anchoSkin);
}

void PintarCabecera(QPainter& pintor, const QRect& zona,
                    const std::vector<ColumnaCabecera>& columnas, const EstadoCabecera& estado) {
    pintor.setFont(LetraCabecera(estado.HedersFontBlod));
    pintor.drawPixmap(zona, estado.SkinPicture,
                      QRect(kFondo, 0, estado.anchoCelda, estado.altoSkin));
    const QFontMetrics letra = pintor.fontMetrics();
    const auto medir = [&letra](const QString& texto) { return letra.horizontalAdvance(texto); };
    Caso caso; // kept for a following column of unknown format
    for (int i = 0; i < static_cast<int>(columnas.size()); ++i) {
        const ColumnaCabecera& columna = columnas[static_cast<size_t>(i)];
        caso = CasoDe(columna.fmt).value_or(caso);
        Columna medidas = {columna.sitio, {}, estado.tamanoIcono};
        const QString titulo = Recortar(columna.titulo, AnchoTitulo(medidas, caso), medir);
        medidas.texto = QSize(medir(titulo), letra.height());
        const Posiciones posiciones = Disponer(medidas, caso, estado.IconAlingmentRight);
        Trazo trazo(pintor, estado, columna,
                    AspectoDe(i == estado.columnaActiva, estado.sinResalte, estado.pulsado));
        trazo.Medio();
        if (posiciones.conIcono && !columna.imagen.isNull())
            trazo.Icono(columna.imagen, posiciones.icono);
        trazo.Texto(titulo, posiciones.texto);
        trazo.Extremos();
    }
}

} // namespace explorer

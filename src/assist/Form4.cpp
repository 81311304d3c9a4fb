// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Form4.h"

#include "assist/Catalogo.h"
#include "platform/forms/Handler.h"
#include "shared/Medidas.h"
#include "ui_Form4.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace assist {
namespace {

constexpr int kLineasDeLista = 16;
constexpr int kMargen = 8; // pixels

// The list in the frame, made for its first entry.
QComboBox* Lista(QWidget* marco, const char* nombre) {
    if (auto* lista = marco->findChild<QComboBox*>(QString::fromLatin1(nombre)))
        return lista;
    auto* lista = new QComboBox(marco);
    lista->setObjectName(QString::fromLatin1(nombre));
    lista->setEditable(true);
    lista->setInsertPolicy(QComboBox::NoInsert);
    lista->setCompleter(nullptr); // it would change what is typed
    lista->setMaxVisibleItems(kLineasDeLista);
    marco->layout()->addWidget(lista);
    return lista;
}

// A page that scrolls sideways where the window is narrower than its entries.
class Ventanilla : public QScrollArea {
public:
    explicit Ventanilla(QWidget* pagina) {
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setWidgetResizable(true);
        setWidget(pagina);
    }

    QSize sizeHint() const override { return widget()->sizeHint(); }
    QSize minimumSizeHint() const override {
        return {QScrollArea::minimumSizeHint().width(), widget()->minimumSizeHint().height()};
    }
};

} // namespace

Form4::Form4(Insertar insertar)
    : m_ui(std::make_unique<Ui::Form4>()), m_insertar(std::move(insertar)) {
    m_ui->setupUi(this);
    Caption(windowTitle());
    HacerPestanas();
    m_ui->SSTab1->Beside(m_ui->Botones);
    resize(size().expandedTo(sizeHint())); // larger fonts need more
    DefaultButton(m_ui->KewlButtons1);
    CancelButton(m_ui->KewlButtons2);
    setFocusProxy(m_ui->SSTab1);
    platform::OnEvent(m_ui->KewlButtons1, &QPushButton::clicked, this, &Form4::KewlButtons1_Click);
    platform::OnEvent(m_ui->KewlButtons2, &QPushButton::clicked, this, &Form4::KewlButtons2_Click);
}

Form4::~Form4() = default;

void Form4::HacerPestanas() {
    for (size_t i = 0; i < Pestanas().size(); ++i)
        m_ui->SSTab1->AddTab(QString::fromUtf16(Pestanas()[i].rotulo),
                             new Ventanilla(HacerPagina(i)));
    // The buttons come last. QWidget keeps the tab order as a ring, in which they already follow
    // the last entry: setTabOrder would change nothing, so they go behind the first entry first.
    for (QPushButton* boton : {m_ui->KewlButtons2, m_ui->KewlButtons1}) {
        for (const EntradaCatalogo& entrada : {Catalogo().front(), Catalogo().back()})
            setTabOrder(findChild<QWidget*>(QString::fromLatin1(entrada.control)), boton);
    }
}

QWidget* Form4::HacerPagina(size_t pestana) {
    const Pestana& datos = Pestanas()[pestana];
    auto* marco = new QGroupBox;
    marco->setObjectName(QString::fromLatin1(datos.marco));
    auto* filas = new QVBoxLayout(marco);
    filas->setSpacing(0);
    filas->setContentsMargins(kMargen, 0, kMargen, 0);
    auto* grupo = new QButtonGroup(marco); // else a QRadioButton alone could be unchecked again
    QWidget* dentro = marco;
    if (datos.marcoInterior) {
        dentro = new QGroupBox(QString::fromUtf16(datos.rotuloInterior), marco);
        dentro->setObjectName(QString::fromLatin1(datos.marcoInterior));
        filas->addWidget(dentro);
        new QVBoxLayout(dentro);
    }
    for (const EntradaCatalogo& entrada : Catalogo()) {
        if (entrada.pestana != pestana)
            continue;
        if (datos.marcoInterior) {
            QComboBox* lista = Lista(dentro, entrada.control);
            lista->addItem(entrada.Rotulo());
            lista->setAccessibleName(QString::fromUtf16(datos.rotuloInterior));
            continue;
        }
        auto* opcion = new QRadioButton(entrada.Rotulo(), marco);
        opcion->setObjectName(QString::fromLatin1(entrada.control));
        grupo->addButton(opcion);
        opcion->setChecked(grupo->buttons().size() == 1);
        filas->addWidget(opcion);
    }
    filas->addStretch();
    return marco;
}

void Form4::Form_Load() {
    Place(shared::kAnchoDocumento, 0);
}

bool Form4::Elegida(const EntradaCatalogo& entrada) const {
    if (static_cast<int>(entrada.pestana) != m_ui->SSTab1->Tab())
        return false;
    const auto* control = findChild<QWidget*>(QString::fromLatin1(entrada.control));
    if (const auto* lista = qobject_cast<const QComboBox*>(control))
        return lista->currentText() == entrada.Rotulo();
    return qobject_cast<const QRadioButton*>(control)->isChecked();
}

void Form4::KewlButtons1_Click() {
    const auto entradas = Catalogo();
    const auto entrada = std::find_if(entradas.begin(), entradas.end(),
                                      [this](const EntradaCatalogo& e) { return Elegida(e); });
    if (entrada != entradas.end())
        m_insertar(entrada->Codigo());
}

void Form4::KewlButtons2_Click() {
    Unload();
}

} // namespace assist

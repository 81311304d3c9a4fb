// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "deploy/Destinos.h"
#include "platform/files/FileSystemObject.h"
#include "platform/forms/Form.h"
#include "shared/ValoresCompartidos.h"

#include <QString>
#include <memory>

namespace Ui {
class transfer_form;
}

namespace deploy {

/// The window that sends the script that was published last to the console's memory stick. It can't
/// be closed while the files are copied.
class transfer_form : public platform::Form {
    Q_OBJECT

public:
    transfer_form(shared::ValoresCompartidos& compartido);
    ~transfer_form() override;

    bool IsBusy() const override { return m_copiando; }

protected:
    void Form_Load() override;
    void Form_QueryUnload(bool& cancelar) override;
    bool event(QEvent* evento) override;

private:
    void Combo1_Click();
    void KewlButtons1_Click();
    void KewlButtons2_Click();
    void parar_Click();

    void CrearProyecto(const Destino& destino, const QString& texto);
    void MostrarCopia(bool copiando);
    void CopiarTodo(const Destino& destino);
    void Copiar(const QString& origen, const QString& destino);

    std::unique_ptr<Ui::transfer_form> m_ui;
    shared::ValoresCompartidos& m_compartido;
    platform::FileSystemObject m_fso;
    int m_cancelar = 0; // not 0: the copy stops
    bool m_copiando = false;
    int64_t m_finDobleClic = 0; // platform::Now until which a press counts as a double click
    bool m_dobleClic = false;   // the last press was one
};

} // namespace deploy

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/frmDocumento.h"
#include "platform/forms/Form.h"

#include <QPointer>
#include <memory>

namespace Ui {
class Form4;
}

namespace assist {

struct EntradaCatalogo;

/// The window from which calls of the player are put into a script.
class Form4 : public platform::Form {
    Q_OBJECT

public:
    /// `FrmDoc` is the document that gets the calls, as it is at each press.
    explicit Form4(const QPointer<documents::frmDocumento>& FrmDoc);
    ~Form4() override;

protected:
    void Form_Load() override;

private:
    void HacerPestanas();
    QWidget* HacerPagina(size_t pestana);
    bool Elegida(const EntradaCatalogo& entrada) const;
    void KewlButtons1_Click();
    void KewlButtons2_Click();

    std::unique_ptr<Ui::Form4> m_ui;
    const QPointer<documents::frmDocumento>& m_frmDoc;
};

} // namespace assist

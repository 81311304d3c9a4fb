// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/Form.h"

#include <QString>
#include <functional>
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
    /// Inserts the text into the current script, if there is one, and gives it the focus.
    using Insertar = std::function<void(const QString& codigo)>;

    explicit Form4(Insertar insertar);
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
    Insertar m_insertar;
};

} // namespace assist

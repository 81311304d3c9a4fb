// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/Form.h"

#include <array>
#include <memory>

class QLineEdit;
class QSlider;

namespace Ui {
class Form1;
}

namespace assist {

/// The window in which a colour is mixed. It shows the Lua expression for the colour.
class Form1 : public platform::Form {
    Q_OBJECT

public:
    Form1();
    ~Form1() override;

    /// Shows the colour of the sliders in the swatches and in the expression.
    void colorchange();

protected:
    void Form_Load() override;

private:
    struct Canal {
        QSlider* deslizador = nullptr;
        QLineEdit* texto = nullptr;
    };

    void Unir(const Canal& canal);
    void Deslizador_Change(const Canal& canal);
    void Texto_Change(const Canal& canal);
    void KewlButtons2_Click();

    std::unique_ptr<Ui::Form1> m_ui;
    std::array<Canal, 3> m_canales{};
};

} // namespace assist

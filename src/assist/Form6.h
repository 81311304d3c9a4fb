// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "assist/MarcoCoordenadas.h"
#include "platform/forms/Form.h"

#include <memory>

namespace png {
class LoadPNG;
}

namespace Ui {
class Form6;
}

namespace assist {

/// The window in which PNG files are picked; each is painted into Form5 as soon as it is chosen.
class Form6 : public platform::Form {
    Q_OBJECT

public:
    Form6(MarcoCoordenadas& coordenadas);
    ~Form6() override;

protected:
    void Form_Load() override;

private:
    void Drive1_Change();
    void Dir1_Change();
    void File1_Click();
    void KewlButtons5_Click();

    png::LoadPNG& Lector();

    std::unique_ptr<Ui::Form6> m_ui;
    MarcoCoordenadas& m_coordenadas;
    std::unique_ptr<png::LoadPNG> m_lector;
};

} // namespace assist

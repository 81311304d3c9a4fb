// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "assist/MarcoCoordenadas.h"
#include "platform/controls/PictureBox.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/Form.h"

#include <memory>

namespace Ui {
class Form5;
}

namespace assist {

/// The window that tells the position of the mouse on the console's screen, in pixels, with the
/// console's own picture or one of the user's behind.
class Form5 : public platform::Form {
    Q_OBJECT

public:
    Form5(MarcoCoordenadas& coordenadas);
    ~Form5() override;

    platform::PictureBox& Picture1();

protected:
    void Form_Load() override;

private:
    void Picture1_MouseMove(float X, float Y);
    void Picture1_Click();
    void KewlButtons2_Click();
    void KewlButtons4_Click();
    void KewlButtons5_Click();
    void KewlButtons6_Click();

    std::unique_ptr<Ui::Form5> m_ui;
    MarcoCoordenadas& m_coordenadas;
    platform::CommonDialog CommonDialog1;
};

} // namespace assist

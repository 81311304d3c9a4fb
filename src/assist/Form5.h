// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls/PictureBox.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/Form.h"

#include <functional>
#include <memory>

namespace Ui {
class Form5;
}

namespace assist {

/// The window that shows the position of the mouse on the console's screen, in its pixels, over the
/// console's own picture or a PNG of the user's.
class Form5 : public platform::Form {
    Q_OBJECT

public:
    /// `elegirPng` shows the window in which PNG files are picked.
    explicit Form5(std::function<void()> elegirPng);
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
    std::function<void()> m_elegirPng;
    platform::CommonDialog CommonDialog1;
};

} // namespace assist

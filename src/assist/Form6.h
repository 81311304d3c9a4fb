// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls/PictureBox.h"
#include "platform/forms/Form.h"

#include <functional>
#include <memory>

namespace png {
class LoadPNG;
}

namespace Ui {
class Form6;
}

namespace assist {

/// The window in which PNG files are picked; each is painted as soon as it is chosen.
class Form6 : public platform::Form {
    Q_OBJECT

public:
    /// Returns the picture box that they are painted into; fails if its window can't be loaded.
    using Pantalla = std::function<platform::PictureBox&()>;

    explicit Form6(Pantalla pantalla);
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
    Pantalla m_pantalla;
    std::unique_ptr<png::LoadPNG> m_lector;
};

} // namespace assist

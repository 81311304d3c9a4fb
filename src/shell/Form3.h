// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/Form.h"

#include <memory>

namespace Ui {
class Form3;
}

namespace shell {

/// The about window, which is modal.
class Form3 : public platform::Form {
    Q_OBJECT

public:
    explicit Form3(QWidget* dueno);
    ~Form3() override;

private:
    void cmdOK_Click();

    std::unique_ptr<Ui::Form3> m_ui;
};

} // namespace shell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Form.h"

#include <memory>

namespace Ui {
class Form2;
}

namespace shell {

/// The configuration window.
class Form2 : public platform::Form {
    Q_OBJECT

public:
    Form2();
    ~Form2() override;

private:
    std::unique_ptr<Ui::Form2> m_ui;
};

} // namespace shell

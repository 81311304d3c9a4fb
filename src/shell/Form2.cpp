// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Form2.h"

#include "ui_Form2.h"

namespace shell {

Form2::Form2() : m_ui(std::make_unique<Ui::Form2>()) {
    m_ui->setupUi(this);
    Caption(windowTitle());
}

Form2::~Form2() = default;

} // namespace shell

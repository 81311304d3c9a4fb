// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/Form.h"

#include <QString>
#include <memory>

namespace Ui {
class Form2;
}

namespace shell {

/// The configuration window: the two settings of the user, and the two types of files that can be
/// registered with the desktop.
class Form2 : public platform::Form {
    Q_OBJECT

public:
    Form2();
    ~Form2() override;

protected:
    void Form_Load() override;

private:
    void Command1_Click();
    void Command2_Click();
    void KewlButtons3_Click();
    void KewlButtons4_Click();

    std::unique_ptr<Ui::Form2> m_ui;
    QString ArchivoConfig;
};

} // namespace shell

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/CommonDialog.h"
#include "platform/forms/Form.h"

#include <QString>
#include <memory>

namespace Ui {
class Imprimir;
}

namespace print {

class Class2;

/// The window that prints a file of rich or plain text.
class Imprimir : public platform::Form {
    Q_OBJECT

public:
    Imprimir();
    ~Imprimir() override;

    /// Loads a file by program path; fails and keeps the old text if it can't be read.
    void Abrir(const QString& ruta);

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void Command1_Click();
    void Command2_Click();

    std::unique_ptr<Ui::Imprimir> m_ui;
    platform::CommonDialog CommonDialog1;
    std::unique_ptr<Class2> impresor;
};

} // namespace print

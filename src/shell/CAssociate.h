// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Failure.h"

#include <QString>

namespace shell {

/// Registers a program as the opener of an extension.
class CAssociate {
public:
    static constexpr auto kSinTitulo = static_cast<platform::FailureCode>(922);
    static constexpr auto kSinClase = static_cast<platform::FailureCode>(926);
    static constexpr auto kSinOrden = static_cast<platform::FailureCode>(930);

    QString Title;
    QString Class;
    QString Extension;   ///< with its point
    QString AppCommand;  ///< program path
    QString DefaultIcon; ///< program path of an .ico file

    /// Fails without a title, class or command, and writes nothing then; a write that fails goes to
    /// the log.
    void Associate() const;
};

} // namespace shell

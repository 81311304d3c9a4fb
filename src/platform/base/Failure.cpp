// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/Failure.h"

#include <utility>

namespace platform {

Failure::Failure(FailureCode code, QString source, QString text)
    : m_code(code), m_source(std::move(source)), m_text(std::move(text)), m_what(m_text.toUtf8()) {}

bool Failure::IsFileAccess() const {
    switch (m_code) {
    case FailureCode::FileNotFound:
    case FailureCode::DiskFull:
    case FailureCode::PermissionDenied:
    case FailureCode::PathFileAccess:
    case FailureCode::PathNotFound:
        return true;
    default:
        return false;
    }
}

} // namespace platform

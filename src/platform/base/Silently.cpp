// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/Silently.h"

#include "platform/base/Log.h"

#include <exception>

namespace platform {

bool RunSilently(const std::function<void()>& handler) {
    try {
        handler();
        return true;
    } catch (const std::exception& error) {
        qCWarning(lcQuillmark) << "a failure was ignored:" << error.what();
        return false;
    }
}

} // namespace platform

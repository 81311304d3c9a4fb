// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Seam.h"

#include <utility>

namespace support {

/// Puts something else in the place of the desktop's while it lives.
template<class T>
class Override {
public:
    Override(platform::Seam<T>& seam, T other)
        : m_seam(seam), m_before(seam.Replace(std::move(other))) {}
    ~Override() { m_seam.Replace(std::move(m_before)); }
    Override(const Override&) = delete;
    Override& operator=(const Override&) = delete;

private:
    platform::Seam<T>& m_seam;
    T m_before;
};

template<class T, class Other>
Override(platform::Seam<T>&, Other) -> Override<T>;

} // namespace support

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

namespace platform {

/// Something of the desktop that a test puts another in the place of.
template<class T>
class Seam {
public:
    explicit Seam(T usual) : m_current(std::move(usual)) {}

    T& Current() { return m_current; }
    /// Answers the former one.
    T Replace(T other) { return std::exchange(m_current, std::move(other)); }

private:
    T m_current;
};

} // namespace platform

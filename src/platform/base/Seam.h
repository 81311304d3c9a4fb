// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

namespace platform {

/// A part of the desktop that a test can replace.
template<class T>
class Seam {
public:
    explicit Seam(T usual) : m_current(std::move(usual)) {}

    T& Current() { return m_current; }
    /// Returns the one before.
    T Replace(T other) { return std::exchange(m_current, std::move(other)); }

private:
    T m_current;
};

} // namespace platform

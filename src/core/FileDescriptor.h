// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

#include <utility>

namespace core {

/// Owns a POSIX file descriptor; -1 for none.
class FileDescriptor {
public:
    explicit FileDescriptor(int number = -1) : m_number(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~FileDescriptor() {
        if (m_number >= 0)
            close(m_number);
    }

    explicit operator bool() const { return m_number >= 0; }
    int Number() const { return m_number; }
    int Release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

} // namespace core

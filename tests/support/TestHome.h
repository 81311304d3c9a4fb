// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/files/Drives.h"
#include "support/Override.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <filesystem>
#include <memory>

namespace support {

/// The bytes of a file; empty if it isn't there.
QByteArray Bytes(const std::filesystem::path& path);
/// The bytes of a file that travels with the program, such as "Code/codehm".
QByteArray Shipped(const std::string& name);

/// A fresh user: home folder (drive C), per-user store and program folder (C:\programa), gone again
/// with the object. The current directory is the home folder.
class TestHome {
public:
    TestHome();
    ~TestHome();
    TestHome(const TestHome&) = delete;
    TestHome& operator=(const TestHome&) = delete;

    std::filesystem::path Root() const { return m_folder.path().toStdString(); }
    /// Writes a file below the home folder, with the folders above it; answers its program path.
    QString Put(const std::string& name, const QByteArray& bytes) const;
    /// Writes a program in the same way.
    void PutProgram(const std::string& name, const QByteArray& bytes) const {
        Put(name, bytes);
        std::filesystem::permissions(Root() / name, std::filesystem::perms::owner_all);
    }
    /// The bytes of a file below the home folder.
    QByteArray Get(const std::string& name) const { return Bytes(Root() / name); }

private:
    QTemporaryDir m_folder;
    Override<std::unique_ptr<platform::Drives>> m_drives;
};

} // namespace support

// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TestHome.h"

#include "platform/files/Paths.h"
#include "platform/files/ProgramFolder.h"

#include <QSettings>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

using namespace Qt::StringLiterals;
namespace support {

namespace fs = std::filesystem;

QByteArray Bytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return QByteArray::fromStdString({std::istreambuf_iterator<char>(file), {}});
}

QByteArray Shipped(const std::string& name) {
    return Bytes(fs::path(QUILLMARK_DATA) / name);
}

TestHome::TestHome()
    : m_drives(platform::DrivesSeam(), std::make_unique<platform::Drives>(Root(), QString())) {
    qputenv("HOME", m_folder.path().toUtf8());
    qputenv("QUILLMARK_HOME", (m_folder.path() + u"/programa"_s).toUtf8());
    qputenv("XDG_DATA_HOME", (m_folder.path() + u"/.local/share"_s).toUtf8());
    qputenv("XDG_CONFIG_HOME", (m_folder.path() + u"/.config"_s).toUtf8());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       m_folder.path() + u"/.config"_s);
    platform::PrepareProgramFolder(Root() / "bin" / "quillmark");
    fs::current_path(Root());
}

TestHome::~TestHome() {
    fs::current_path("/");
    std::error_code ignored; // the folder itself goes again with its object
    fs::remove_all(Root(), ignored);
}

QString TestHome::Put(const std::string& name, const QByteArray& bytes) const {
    const fs::path path = Root() / name;
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    EXPECT_TRUE(file.write(bytes.data(), bytes.size()).flush()) << path;
    return platform::FromNative(path);
}

} // namespace support

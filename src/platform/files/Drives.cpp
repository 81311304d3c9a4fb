// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Drives.h"

#include <QDir>
#include <QStorageInfo>
#include <algorithm>
#include <array>
#include <iterator>
#include <memory>

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 3> kRemovableRoots = {"/media", "/run/media", "/mnt"};

bool Holds(const fs::path& root, const fs::path& path) {
    const auto [end, ignored] = std::mismatch(root.begin(), root.end(), path.begin(), path.end());
    return end == root.end();
}

bool IsRemovable(const fs::path& path) {
    return std::any_of(kRemovableRoots.begin(), kRemovableRoots.end(),
                       [&](const char* root) { return Holds(root, path); });
}

// Normal form without a separator at the end, which would count as one more part of the path.
fs::path Normal(const fs::path& path) {
    fs::path normal = path.lexically_normal();
    return normal.has_filename() || normal == normal.root_path() ? normal : normal.parent_path();
}

} // namespace

Drives::Drives(const fs::path& home, const QString& overrides) {
    m_fixed.push_back({'C', Normal(home)});
    m_fixed.push_back({'Z', "/"});
    for (const QString& item : overrides.split(u';', Qt::SkipEmptyParts)) {
        const QString root = item.mid(2);
        const char letter = item.at(0).toUpper().toLatin1();
        if (letter < 'A' || letter > 'Z' || item.mid(1, 1) != u"=" || !root.startsWith(u'/'))
            continue;
        std::erase_if(m_fixed, [&](const Drive& d) { return d.letter == letter; });
        m_fixed.push_back({letter, Normal(root.toStdString())});
    }
}

std::optional<char> Drives::FreeLetter() const {
    const auto taken = [](const std::vector<Drive>& list, char letter) {
        return std::any_of(list.begin(), list.end(),
                           [&](const Drive& d) { return d.letter == letter; });
    };
    for (char letter = 'D'; letter <= 'Z'; ++letter) {
        if (!taken(m_fixed, letter) && !taken(m_volumes, letter))
            return letter;
    }
    return std::nullopt;
}

void Drives::RefreshVolumes() {
    m_mounted.clear();
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const fs::path root = Normal(volume.rootPath().toStdString());
        if (IsRemovable(root))
            m_mounted.push_back(root);
    }
    std::sort(m_mounted.begin(), m_mounted.end());
    for (const fs::path& root : m_mounted) {
        const bool known = std::any_of(m_volumes.begin(), m_volumes.end(),
                                       [&](const Drive& d) { return d.root == root; });
        if (const auto letter = FreeLetter(); letter && !known)
            m_volumes.push_back({*letter, root});
    }
}

std::vector<Drive> Drives::List() {
    RefreshVolumes();
    std::vector<Drive> all = m_fixed;
    std::copy_if(m_volumes.begin(), m_volumes.end(), std::back_inserter(all), [&](const Drive& d) {
        return std::find(m_mounted.begin(), m_mounted.end(), d.root) != m_mounted.end();
    });
    std::sort(all.begin(), all.end(),
              [](const Drive& a, const Drive& b) { return a.letter < b.letter; });
    return all;
}

std::optional<fs::path> Drives::Root(QChar letter) {
    const auto find = [&](const std::vector<Drive>& list) -> std::optional<fs::path> {
        for (const Drive& drive : list) {
            if (QLatin1Char(drive.letter) == letter.toUpper())
                return drive.root;
        }
        return std::nullopt;
    };
    // The mounts are listed only if need be: a dead one may block the call.
    if (auto root = find(m_fixed))
        return root;
    return find(List());
}

Drive Drives::Holding(const fs::path& native) {
    const std::vector<Drive> candidates = IsRemovable(native) ? List() : m_fixed;
    Drive best{'Z', "/"};
    for (const Drive& drive : candidates) {
        if (Holds(drive.root, native) && drive.root.native().size() >= best.root.native().size())
            best = drive;
    }
    return best;
}

Seam<std::unique_ptr<Drives>>& DrivesSeam() {
    static Seam<std::unique_ptr<Drives>> seam(
        std::make_unique<Drives>(fs::path(QDir::homePath().toStdString()),
                                 QString::fromLocal8Bit(qgetenv("QUILLMARK_DRIVES"))));
    return seam;
}

Drives& CurrentDrives() {
    return *DrivesSeam().Current();
}

} // namespace platform

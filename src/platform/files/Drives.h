// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Seam.h"

#include <QString>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

struct Drive {
    char letter; ///< 'A' to 'Z'
    std::filesystem::path root;
};

/// The drive letters of the program. C is the user's home folder and Z the root of the file system;
/// the letters from D on are the mounted removable volumes, in the order of their mount points, and
/// a letter stays with its volume for the run. `overrides` ("E=/path;F=/other") adds or replaces
/// letters.
class Drives {
public:
    Drives(const std::filesystem::path& home, const QString& overrides);

    /// All drives that are there now, sorted by letter.
    std::vector<Drive> List();
    /// The root folder of a letter of either case; nullopt if there is no such drive now.
    std::optional<std::filesystem::path> Root(QChar letter);
    /// The drive that holds the absolute path; of several, the one with the longest root.
    Drive Holding(const std::filesystem::path& native);

private:
    void RefreshVolumes();
    std::optional<char> FreeLetter() const;

    std::vector<Drive> m_fixed;   // C, Z and the overrides
    std::vector<Drive> m_volumes; // every volume seen in this run, mounted or not
    std::vector<std::filesystem::path> m_mounted;
};

/// The drives of this process, from HOME and QUILLMARK_DRIVES as they are at the first use.
Drives& CurrentDrives();
Seam<std::unique_ptr<Drives>>& DrivesSeam();

} // namespace platform

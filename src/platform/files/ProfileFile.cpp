// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/ProfileFile.h"

#include "core/LineEnds.h"
#include "core/TextMarks.h"
#include "platform/base/Failure.h"
#include "platform/files/Files.h"
#include "platform/files/FolderLock.h"
#include "platform/files/Paths.h"
#include "platform/text/CodePage.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace platform {
namespace {

// A line of the file without its line end, and its offset in bytes.
struct Line {
    qsizetype start = 0;
    QByteArrayView text;
};

std::vector<Line> LinesOf(const QByteArray& file) {
    std::vector<Line> lines;
    qsizetype start = file.startsWith(core::kUtf8Mark) ? qsizetype{core::kUtf8Mark.size()} : 0;
    while (start < file.size()) {
        qsizetype end = file.indexOf('\n', start);
        end = end < 0 ? file.size() : end;
        QByteArrayView text = QByteArrayView(file).sliced(start, end - start);
        while (text.endsWith('\r'))
            text.chop(1);
        lines.push_back({start, text});
        start = end + 1;
    }
    return lines;
}

bool SameName(QByteArrayView a, QByteArrayView b) {
    return FromCodePage(a.trimmed()).compare(FromCodePage(b.trimmed()), Qt::CaseInsensitive) == 0;
}

// The name in a section line, without the brackets; nullopt for any other line.
std::optional<QByteArrayView> SectionOf(const Line& line) {
    const QByteArrayView text = line.text.trimmed();
    if (!text.startsWith('['))
        return std::nullopt;
    const qsizetype end = text.indexOf(']');
    return text.sliced(1, (end < 0 ? text.size() : end) - 1);
}

bool IsKey(const Line& line, QByteArrayView key) {
    if (line.text.startsWith(';'))
        return false;
    const qsizetype equals = line.text.indexOf('=');
    return equals >= 0 && SameName(line.text.first(equals), key);
}

// The lines of a section without its heading, up to the next section.
struct Section {
    size_t first = 0;
    size_t end = 0;
};

std::optional<Section> FindSection(const std::vector<Line>& lines, QByteArrayView name) {
    const auto isSection = [](const Line& line) { return SectionOf(line).has_value(); };
    const auto head = std::find_if(lines.begin(), lines.end(), [&](const Line& line) {
        const auto section = SectionOf(line);
        return section && SameName(*section, name);
    });
    if (head == lines.end())
        return std::nullopt;
    const auto end = std::find_if(head + 1, lines.end(), isSection);
    return Section{static_cast<size_t>(head - lines.begin()) + 1,
                   static_cast<size_t>(end - lines.begin())};
}

const Line* FindKey(const std::vector<Line>& lines, const Section& section, QByteArrayView key) {
    const auto end = lines.begin() + static_cast<qsizetype>(section.end);
    const auto line = std::find_if(lines.begin() + static_cast<qsizetype>(section.first), end,
                                   [&](const Line& l) { return IsKey(l, key); });
    return line == end ? nullptr : &*line;
}

// The offset after the section's last line that isn't blank.
qsizetype PlaceForNewKey(const std::vector<Line>& lines, const Section& section) {
    size_t last = section.end;
    while (last > section.first && lines[last - 1].text.trimmed().isEmpty())
        --last;
    return lines[last - 1].start + lines[last - 1].text.size();
}

} // namespace

std::optional<QByteArray> ProfileValue(const QByteArray& file, const QByteArray& section,
                                       const QByteArray& key) {
    const std::vector<Line> lines = LinesOf(file);
    const auto found = FindSection(lines, section);
    const Line* line = found ? FindKey(lines, *found, key) : nullptr;
    if (!line)
        return std::nullopt;
    QByteArrayView value = line->text.sliced(line->text.indexOf('=') + 1).trimmed();
    if (value.size() >= 2 && value.startsWith('"') && value.endsWith('"'))
        value = value.sliced(1, value.size() - 2);
    return value.toByteArray();
}

QByteArray WithProfileValue(const QByteArray& file, const QByteArray& section,
                            const QByteArray& key, const QByteArray& value) {
    const std::vector<Line> lines = LinesOf(file);
    const bool lineFeeds =
        core::MainLineEnd({file.data(), static_cast<size_t>(file.size())}) == core::LineEnd::Lf;
    const QByteArray lineEnd = lineFeeds ? "\n" : "\r\n";
    const QByteArray entry = key + '=' + value;
    const auto found = FindSection(lines, section);
    QByteArray result = file;
    if (!found) {
        if (!result.isEmpty() && !result.endsWith('\n'))
            result += lineEnd;
        return result + '[' + section + ']' + lineEnd + entry + lineEnd;
    }
    if (const Line* line = FindKey(lines, *found, key)) {
        const qsizetype equals = line->text.indexOf('=') + 1;
        return result.replace(line->start + equals, line->text.size() - equals, value);
    }
    return result.insert(PlaceForNewKey(lines, *found), lineEnd + entry);
}

bool PathFileExistsA(const QString& path) {
    try {
        std::error_code error;
        return std::filesystem::exists(ToNative(path), error);
    } catch (const Failure&) {
        return false;
    }
}

int GetPrivateProfileStringA(const QString& section, const QString& key, const QString& fallback,
                             std::span<char> buffer, const QString& path) {
    if (buffer.empty())
        return 0;
    QByteArray value = ToCodePageLossy(fallback);
    try {
        const auto found =
            ProfileValue(ReadFile(path), ToCodePageLossy(section), ToCodePageLossy(key));
        value = found.value_or(value);
    } catch (const Failure&) {
        // An unreadable file has no keys.
    }
    value.truncate(static_cast<qsizetype>(buffer.size()) - 1);
    std::copy(value.begin(), value.end(), buffer.begin());
    buffer[static_cast<size_t>(value.size())] = '\0';
    return static_cast<int>(value.size());
}

void WritePrivateProfileStringA(const QString& section, const QString& key, const QString& value,
                                const QString& path) {
    // Between reading and writing, another copy of the program could change another key.
    const FolderLock lock(ToNative(path, LastName::AsWritten).parent_path());
    const QByteArray old = PathFileExistsA(path) ? ReadFile(path) : QByteArray();
    // A line end inside a value would break the file up.
    const QString line = value.section(u'\n', 0, 0).section(u'\r', 0, 0);
    WriteFile(path, WithProfileValue(old, ToCodePageLossy(section), ToCodePageLossy(key),
                                     ToCodePageLossy(line)));
}

} // namespace platform

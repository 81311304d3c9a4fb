// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/FolderSearch.h"

#include "platform/base/Failure.h"
#include "platform/base/Silently.h"
#include "platform/files/FileErrors.h"
#include "platform/files/FileHandle.h"
#include "platform/files/Paths.h"
#include "platform/text/TextEncoding.h"

#include <QMetaObject>
#include <algorithm>
#include <fcntl.h>
#include <functional>
#include <optional>
#include <stop_token>
#include <utility>

namespace documents {
namespace {

namespace fs = std::filesystem;

constexpr qsizetype kShownBytes = 800;
constexpr qsizetype kShownCharacters = 200;

bool IsScript(const fs::path& file) {
    const QString name = QString::fromStdString(file.extension().string()).toLower();
    return name == u".lua" || name == u".qmk";
}

std::optional<QByteArray> ReadScript(const fs::path& file) {
    try {
        const platform::FileHandle handle(file, O_RDONLY | O_NONBLOCK);
        handle.RequireRegular();
        if (static_cast<std::uintmax_t>(handle.Status().st_size) > FolderSearch::kLargestFile)
            return std::nullopt;
        return platform::DecodeText(handle.ReadAll()).utf8;
    } catch (const platform::SystemError&) {
        return std::nullopt;
    } catch (const platform::Failure&) {
        return std::nullopt;
    }
}

// Counts the lines on the way from hit to hit.
class LineCounter {
public:
    explicit LineCounter(QByteArrayView text) : m_text(text) {}

    /// Goes on to the line of a place behind the last one; false if it is the same line.
    bool GoTo(qsizetype place) {
        bool other = std::exchange(m_fresh, false);
        for (; m_at < place; ++m_at) {
            const bool first = m_text[m_at] == '\r' && m_text[m_at + 1] == '\n'; // of two bytes
            if (first || (m_text[m_at] != '\n' && m_text[m_at] != '\r'))
                continue;
            other = true;
            ++m_line;
            m_start = m_at + 1;
        }
        return other;
    }
    FoundLine Line() const {
        const QByteArrayView rest = m_text.sliced(m_start);
        const auto* end = std::find_if(rest.begin(), rest.end(),
                                       [](char byte) { return byte == '\n' || byte == '\r'; });
        const qsizetype length = std::min<qsizetype>(end - rest.begin(), kShownBytes);
        return {m_line, platform::FromUtf8(rest.first(length)).trimmed().left(kShownCharacters)};
    }

private:
    QByteArrayView m_text;
    qsizetype m_at = 0;
    qsizetype m_line = 0;
    qsizetype m_start = 0;
    bool m_fresh = true;
};

} // namespace

// What runs in the thread.
class FolderSearch::Walk {
public:
    using Told = std::function<void(const fs::path&, const std::vector<FoundLine>&)>;

    Walk(const Search& search, std::stop_token stop, Told told)
        : m_search(search), m_stop(std::move(stop)), m_told(std::move(told)) {}

    void Through(const fs::path& folder) {
        std::vector<fs::path> below;
        for (const fs::directory_entry& entry : Entries(folder)) {
            std::error_code error;
            if (IsOver())
                return;
            if (entry.is_directory(error)) {
                if (!entry.is_symlink(error))
                    below.push_back(entry.path());
            } else if (IsScript(entry.path())) {
                LookInto(entry.path());
            }
        }
        for (const fs::path& one : below)
            Through(one);
    }
    const End& Result() const { return m_end; }

private:
    bool IsOver() const { return m_stop.stop_requested() || m_end.full || !m_end.fault.isEmpty(); }

    static std::vector<fs::directory_entry> Entries(const fs::path& folder) {
        std::vector<fs::directory_entry> entries;
        std::error_code error;
        for (fs::directory_iterator it(folder, error), end; !error && it != end;
             it.increment(error))
            entries.push_back(*it);
        std::sort(entries.begin(), entries.end());
        return entries;
    }

    void LookInto(const fs::path& file) {
        const std::optional<QByteArray> text = ReadScript(file);
        if (!text) {
            ++m_end.failed;
            return;
        }
        ++m_end.files;
        std::vector<FoundLine> lines;
        LineCounter counter(*text);
        const auto add = [&](Hit hit, const QRegularExpressionMatch&) {
            if (m_lines < kMostLines && counter.GoTo(hit.from)) {
                lines.push_back(counter.Line());
                m_end.full = ++m_lines == kMostLines;
            }
        };
        if (!m_search.Visit(*text, add, m_stop) && !m_stop.stop_requested())
            m_end.fault = Search::TooMuchWork();
        if (!lines.empty())
            m_told(file, lines);
    }

    Search m_search;
    std::stop_token m_stop;
    Told m_told;
    qsizetype m_lines = 0;
    End m_end;
};

FolderSearch::~FolderSearch() {
    Stop();
}

void FolderSearch::Start(const QString& folder, const Search& search) {
    const fs::path native = platform::ToNative(folder);
    Stop();
    m_running = true;
    m_thread = std::jthread([this, native, search, run = m_run](std::stop_token stop) {
        const auto tell = [&](const fs::path& file, const std::vector<FoundLine>& lines) {
            QMetaObject::invokeMethod(
                this, [this, run, file, lines] { Tell(run, file, lines); }, Qt::QueuedConnection);
        };
        Walk walk(search, std::move(stop), tell);
        platform::RunSilently([&] { walk.Through(native); });
        QMetaObject::invokeMethod(
            this, [this, run, end = walk.Result()] { TellEnd(run, end); }, Qt::QueuedConnection);
    });
}

void FolderSearch::Stop() {
    m_thread.request_stop();
    ++m_run;
    m_running = false;
}

// The names of drives belong to the windows' thread.
void FolderSearch::Tell(int run, const fs::path& file, const std::vector<FoundLine>& lines) {
    if (run == m_run)
        Q_EMIT Found(platform::FromNative(file), lines);
}

void FolderSearch::TellEnd(int run, const End& end) {
    if (run != m_run)
        return;
    m_running = false;
    Q_EMIT Ended(end);
}

} // namespace documents

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/find/Search.h"

#include <QObject>
#include <QString>
#include <filesystem>
#include <thread>
#include <vector>

namespace documents {

/// A line of a file that holds a hit.
struct FoundLine {
    qsizetype line = 0; ///< from 0
    QString text;       ///< without the blanks around it; the start of a long line
};

/// Looks through the scripts below a folder, *.lua and *.qmk, in a thread of its own, and tells
/// what it finds by and by. Linked folders are left out, so that none comes twice.
class FolderSearch : public QObject {
    Q_OBJECT

public:
    /// Files beyond it are left out.
    static constexpr std::uintmax_t kLargestFile = 16 << 20;
    /// After so many lines it ends.
    static constexpr qsizetype kMostLines = 5000;

    struct End {
        qsizetype files = 0;  ///< that were looked through
        qsizetype failed = 0; ///< that couldn't be read, are no text, or too large
        bool full = false;    ///< there may be more than kMostLines
        QString fault;        ///< in Spanish, if the pattern asks for too much work
    };

    using QObject::QObject;
    ~FolderSearch() override;

    /// Fails if the folder, a program path, is on no drive. What is still searched is given up.
    void Start(const QString& folder, const Search& search);
    /// Nothing is told any more.
    void Stop();
    bool IsRunning() const { return m_running; }

Q_SIGNALS:
    /// By program path; in the order of the names, those of a folder before those below it.
    void Found(const QString& path, const std::vector<documents::FoundLine>& lines);
    void Ended(const documents::FolderSearch::End& end);

private:
    class Walk;
    void Tell(int run, const std::filesystem::path& file, const std::vector<FoundLine>& lines);
    void TellEnd(int run, const End& end);

    std::jthread m_thread;
    int m_run = 0; // of which what comes is still wanted
    bool m_running = false;
};

} // namespace documents

// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/LineEdits.h"

#include <algorithm>
#include <utility>

namespace documents {
namespace {

struct Line {
    qsizetype start; // in the text
    QByteArrayView text;
    QByteArrayView end;
    qsizetype TextEnd() const { return start + text.size(); }
    qsizetype Size() const { return text.size() + end.size(); }
};
using Lines = std::vector<Line>;

bool IsLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

bool IsBlank(char byte) {
    return byte == ' ' || byte == '\t';
}

Lines Split(QByteArrayView bytes, qsizetype start) {
    Lines lines;
    while (!bytes.isEmpty()) {
        const auto length = std::find_if(bytes.begin(), bytes.end(), IsLineEnd) - bytes.begin();
        const QByteArrayView rest = bytes.sliced(length);
        const qsizetype end = rest.startsWith("\r\n") ? 2 : std::min<qsizetype>(1, rest.size());
        lines.push_back({start, bytes.first(length), rest.first(end)});
        bytes = rest.sliced(end);
        start += lines.back().Size();
    }
    return lines;
}

// The lines that aren't blank.
Lines Filled(const SelectedLines& selected) {
    Lines lines = Split(selected.lines, selected.start);
    std::erase_if(lines, [](const Line& line) {
        return std::all_of(line.text.begin(), line.text.end(), IsBlank);
    });
    return lines;
}

QByteArrayView Indent(QByteArrayView text) {
    return text.first(std::find_if_not(text.begin(), text.end(), IsBlank) - text.begin());
}

QByteArrayView CommonStart(QByteArrayView a, QByteArrayView b) {
    const auto [end, ignored] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return a.first(end - a.begin());
}

// A comment to the end of the line; a long one, --[[ or --[==[, may go on in others.
bool IsComment(const Line& line) {
    const QByteArrayView text = line.text.sliced(Indent(line.text).size());
    if (!text.startsWith("--["))
        return text.startsWith("--");
    const auto second =
        std::find_if_not(text.begin() + 3, text.end(), [](char byte) { return byte == '='; });
    return second == text.end() || *second != '[';
}

qsizetype Moved(qsizetype position, const std::vector<Patch>& patches) {
    qsizetype shift = 0;
    for (const Patch& patch : patches) {
        const qsizetype behind = position - patch.at;
        if (behind > 0 || (behind == 0 && patch.carries))
            shift += patch.added.size() - std::min(behind, patch.removed);
    }
    return position + shift;
}

LineEdit WithSelection(std::vector<Patch> patches, const SelectedLines& selected) {
    const qsizetype anchor = Moved(selected.anchor, patches);
    const qsizetype caret = Moved(selected.caret, patches);
    return {std::move(patches), anchor, caret};
}

// The start of a selection stays before what is put there, a caret doesn't.
bool Carries(const SelectedLines& selected) {
    return selected.anchor == selected.caret;
}

LineEdit Comment(const Lines& lines, const SelectedLines& selected) {
    QByteArrayView common = Indent(lines.front().text);
    for (const Line& line : lines)
        common = CommonStart(common, Indent(line.text));
    std::vector<Patch> patches;
    for (const Line& line : lines)
        patches.push_back({line.start + common.size(), 0, "-- ", Carries(selected)});
    return WithSelection(std::move(patches), selected);
}

LineEdit Uncomment(const Lines& lines, const SelectedLines& selected) {
    std::vector<Patch> patches;
    for (const Line& line : lines) {
        const qsizetype indent = Indent(line.text).size();
        const bool blank = line.text.sliced(indent).startsWith("-- ");
        patches.push_back({line.start + indent, blank ? 3 : 2, {}});
    }
    return WithSelection(std::move(patches), selected);
}

// What stands behind the last of the lines that move, where a selection may end, stays behind it.
LineEdit MovedLines(std::vector<Patch> patches, const SelectedLines& selected, const Line& last,
                    QByteArrayView newEnd) {
    const auto moved = [&](qsizetype position) {
        return position <= last.TextEnd() ? Moved(position, patches)
                                          : Moved(last.TextEnd(), patches) + newEnd.size();
    };
    const qsizetype anchor = moved(selected.anchor);
    const qsizetype caret = moved(selected.caret);
    return {std::move(patches), anchor, caret};
}

// The line ends of all but the last line become those of their neighbours on one side.
void ShiftLineEnds(const Lines& lines, const std::vector<QByteArrayView>& ends,
                   std::vector<Patch>& patches) {
    for (size_t i = 0; i + 1 < lines.size(); ++i) {
        if (lines[i].end != ends[i])
            patches.push_back({lines[i].TextEnd(), lines[i].end.size(), ends[i].toByteArray()});
    }
}

// Whether the two line ends would be one.
bool Meet(bool followsCr, const Line& line, QByteArrayView end) {
    return followsCr && line.text.isEmpty() && end == "\n";
}

// `ends` are those of the lines in their new places.
void KeepApart(const Lines& lines, bool followsCr, std::vector<QByteArrayView>& ends) {
    for (size_t i = 0; i < lines.size(); ++i) {
        if (Meet(followsCr, lines[i], ends[i]))
            ends[i] = "\r\n";
        followsCr = ends[i] == "\r";
    }
}

} // namespace

LineEdit ToggleComment(const SelectedLines& selected) {
    const Lines lines = Filled(selected);
    if (lines.empty())
        return {};
    const bool off = std::all_of(lines.begin(), lines.end(), IsComment);
    return off ? Uncomment(lines, selected) : Comment(lines, selected);
}

LineEdit IndentLines(const SelectedLines& selected, const QByteArray& unit) {
    std::vector<Patch> patches;
    for (const Line& line : Filled(selected))
        patches.push_back({line.start, 0, unit, Carries(selected)});
    return WithSelection(std::move(patches), selected);
}

LineEdit UnindentLines(const SelectedLines& selected, int columns) {
    std::vector<Patch> patches;
    for (const Line& line : Split(selected.lines, selected.start)) {
        const QByteArrayView indent = Indent(line.text);
        const QByteArrayView step = indent.first(std::min<qsizetype>(columns, indent.size()));
        const qsizetype tab = step.indexOf('\t');
        const qsizetype removed = tab < 0 ? step.size() : tab + 1;
        if (removed > 0)
            patches.push_back({line.start, removed, {}});
    }
    return WithSelection(std::move(patches), selected);
}

LineEdit Duplicate(const SelectedLines& selected, const QByteArray& lineEnd) {
    const auto [first, last] = std::minmax(selected.anchor, selected.caret);
    Patch patch{last, 0, selected.lines.mid(first - selected.start, last - first)};
    if (first == last) {
        patch = {selected.start + selected.lines.size(), 0, selected.lines};
        if (selected.lines.isEmpty() || !IsLineEnd(selected.lines.back()))
            patch.added.prepend(lineEnd);
    }
    const qsizetype size = patch.added.size();
    return {{patch}, selected.anchor + size, selected.caret + size};
}

// The line above goes behind the lines.
LineEdit MoveUp(const SelectedLines& selected) {
    if (selected.above.isEmpty() || selected.lines.isEmpty())
        return {};
    const Line above = Split(selected.above, selected.start - selected.above.size()).front();
    const Lines lines = Split(selected.lines, selected.start);
    std::vector<QByteArrayView> ends = {above.end};
    for (const Line& line : lines)
        ends.push_back(line.end);
    KeepApart(lines, selected.aboveFollowsCr, ends);
    const QByteArrayView newEnd = ends[lines.size() - 1];
    std::vector<Patch> patches = {{above.start, above.Size(), {}}};
    ShiftLineEnds(lines, ends, patches);
    patches.push_back({lines.back().TextEnd(), 0, newEnd.toByteArray().append(above.text)});
    if (Meet(newEnd == "\r", above, lines.back().end))
        patches.back().added += '\r';
    return MovedLines(std::move(patches), selected, lines.back(), newEnd);
}

// The line below goes before the lines.
LineEdit MoveDown(const SelectedLines& selected) {
    if (selected.below.isEmpty() || selected.lines.isEmpty())
        return {};
    const Lines lines = Split(selected.lines, selected.start);
    const Line below = Split(selected.below, selected.start + selected.lines.size()).front();
    Lines moved = {below};
    moved.insert(moved.end(), lines.begin(), lines.end());
    std::vector<QByteArrayView> ends;
    for (const Line& line : lines)
        ends.push_back(line.end);
    ends.push_back(below.end);
    KeepApart(moved, selected.above.endsWith('\r'), ends);
    const QByteArrayView firstEnd = ends.front();
    ends.erase(ends.begin());
    const Line& last = lines.back();
    std::vector<Patch> patches = {
        {selected.start, 0, below.text.toByteArray().append(firstEnd), true}};
    ShiftLineEnds(lines, ends, patches);
    const qsizetype removed = last.end.size() + below.text.size();
    patches.push_back({last.TextEnd(), removed, ends.back() == below.end ? "" : "\r"});
    return MovedLines(std::move(patches), selected, last, ends.back());
}

LineEdit DeleteLines(const SelectedLines& selected) {
    Patch patch{selected.start, selected.lines.size(), {}};
    qsizetype caret = selected.start;
    if (selected.lines.isEmpty() || !IsLineEnd(selected.lines.back())) {
        // The last line of the text takes the line end of the one above along.
        const Lines above = Split(selected.above, 0);
        const qsizetype end = above.empty() ? 0 : above.front().end.size();
        patch.at -= end;
        patch.removed += end;
        caret -= selected.above.size();
    }
    if (patch.removed == 0)
        return {};
    if (selected.above.endsWith('\r') && selected.below == "\n")
        patch.added = "\r";
    return {{patch}, caret, caret};
}

} // namespace documents

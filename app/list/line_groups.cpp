#include "app/list/line_groups.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/names/list_entry.h"
#include "core/platform/path.h"
#include "core/settings/user_lists.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

Text NamedInM3u(const Text& line) { return StartsWith(line, u"#") ? Text() : line; }

Text NamedInPls(const Text& line) {
    const Pos equals = InStr(4, line, u"=");
    if (UCase(Left(line, 4)) != u"FILE" || equals == 0) return {};
    return Mid(line, equals + 1);
}

bool IsBlank(TextView line) { return Trimmed(line).empty(); }

bool IsWholeEntry(TextView line) {
    return InStr(line, ListEntryMarker) > 0 && EndsWith(line, u")");
}

bool IsPieceOfEntry(TextView line) { return !IsBlank(line) && InStr(line, ListEntryMarker) == 0; }

bool HasExtension(TextView path) { return InStr(FileNameOfPath(path), u".") > 0; }

bool IsAbsolute(TextView path) { return !path.empty() && IsSeparator(path.front()); }

// A line of a ".pls" file that is nothing by itself.
bool IsPieceInPls(TextView line) {
    return !IsBlank(line) && InStr(line, u"=") == 0 && line.front() != u'[' && line.front() != u';';
}

using Lines = std::vector<Text>;

bool IsOneEntry(const Lines& lines) {
    const Text whole = Replace(JoinLines(lines), CrLf, u"");
    return IsWholeEntry(whole) && std::any_of(lines.begin(), lines.end(), IsPieceOfEntry);
}

// Lines that were added to the file in another way name files on their own: each has an extension,
// and they are absolute or not, all alike.
bool IsOneM3uPath(const Lines& lines) {
    if (StartsWith(lines.front(), u"#")) return false;
    Lines named;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(named),
                 [](const Text& line) { return !IsBlank(line) && !StartsWith(line, u"#"); });
    if (named.size() < 2) return false;
    return !std::all_of(named.begin(), named.end() - 1, HasExtension) ||
           (IsAbsolute(named.front()) && !std::all_of(named.begin(), named.end(), IsAbsolute));
}

}  // namespace

Text NamedIn(const Text& line, ListFileKind kind) {
    switch (kind) {
        case ListFileKind::SortingList:
            return line;
        case ListFileKind::M3u:
            return NamedInM3u(line);
        case ListFileKind::Pls:
            return NamedInPls(line);
        case ListFileKind::Other:
            break;
    }
    return {};
}

bool IsOneName(const LineGroup& group, ListFileKind kind) {
    const Lines& lines = group.Lines;
    if (lines.size() < 2 || group.TooLong) return false;
    if (kind == ListFileKind::SortingList) return IsOneEntry(lines);
    return kind == ListFileKind::M3u ? IsOneM3uPath(lines) : kind == ListFileKind::Pls;
}

LineGroup LineGroups::Take(Text line, bool endsInCrLf) {
    if (std::exchange(firstLine_, false)) linesEndInCrLf_ = endsInCrLf;
    LineGroup ended;
    if (!group_.Lines.empty()) {
        const bool goesOn = GoesOn(line);
        group_.TooLong = goesOn && length_ + line.size() > most_;
        if (!goesOn || group_.TooLong) ended = TakeRest();
    }
    length_ += line.size();
    group_.Lines.push_back(std::move(line));
    lastEndsInCrLf_ = endsInCrLf;
    return ended;
}

LineGroup LineGroups::TakeRest() {
    length_ = 0;
    return std::exchange(group_, {});
}

bool LineGroups::GoesOn(const Text& line) const {
    if (kind_ != ListFileKind::Pls) return linesEndInCrLf_ && !lastEndsInCrLf_;
    return !NamedInPls(group_.Lines.front()).empty() && IsPieceInPls(line);
}

}  // namespace mdlPLM

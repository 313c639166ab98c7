#include "app/list/list_file_reader.h"

#include <algorithm>
#include <utility>

#include "core/platform/path.h"
#include "core/settings/user_lists.h"

namespace mdlPLM {

namespace {

constexpr std::size_t PieceSize = std::size_t{64} << 10;

bool EndsLine(char c) { return c == '\r' || c == '\n'; }

// A NUL is in no file name: such a line is rubbish.
bool IsNothing(const Text& named) { return Trim(named).empty() || named.find(u'\0') != Text::npos; }

Message NotCompatible(TextView path) {
    Text body = u"Only " + EndingsInWords(ListFormats, u"and") + u" files are supported.";
    body.append(CrLf).append(u"That was not a compatible playlist!");
    return {u"PLM", body, Text(path)};
}

}  // namespace

ListFileParser::ListFileParser(ListFileKind kind, Text path)
    : kind_(kind), path_(std::move(path)), groups_(kind, LongestListLine) {}

void ListFileParser::Take(BytesView piece, std::vector<Text>& names) {
    while (!piece.empty()) {
        if (std::exchange(afterCr_, false)) {
            const bool lineFeed = piece.front() == '\n';
            EndLine(lineFeed ? LineEnd::Double : LineEnd::Single, names);
            if (lineFeed) piece.remove_prefix(1);
            continue;
        }
        const auto* const end = std::find_if(piece.begin(), piece.end(), EndsLine);
        const auto length = static_cast<std::size_t>(end - piece.begin());
        Keep(piece.substr(0, length));
        if (length == piece.size()) return;
        afterCr_ = piece[length] == '\r';
        piece.remove_prefix(length + 1);
        if (!afterCr_) EndLine(LineEnd::Single, names);
    }
}

void ListFileParser::End(std::vector<Text>& names) {
    if (!line_.empty() || afterCr_) EndLine(LineEnd::Single, names);
    TakeGroup(groups_.TakeRest(), names);
}

void ListFileParser::Keep(BytesView part) {
    const std::size_t room = LongestListLine - line_.size();
    lineIsTooLong_ = lineIsTooLong_ || part.size() > room;
    line_.append(part.substr(0, room));
}

void ListFileParser::EndLine(LineEnd end, std::vector<Text>& names) {
    BytesView bytes = line_;
    if (std::exchange(firstLine_, false) && StartsWithMark(bytes))
        bytes.remove_prefix(ListFileMark.size());
    Text line = PathFromNative(bytes);
    line_.clear();
    if (std::exchange(lineIsTooLong_, false)) {
        if (!IsNothing(NamedIn(line, kind_))) ++tooLong_;
        line.clear();
    }
    TakeGroup(groups_.Take(std::move(line), end == LineEnd::Double), names);
}

void ListFileParser::TakeGroup(const LineGroup& group, std::vector<Text>& names) {
    if (IsOneName(group, kind_)) {
        refused_.push_back(Trim(Replace(JoinLines(group.Lines), CrLf, u" ")));
        return;
    }
    for (const Text& line : group.Lines) {
        Text named = NamedIn(line, kind_);
        if (IsNothing(named)) continue;
        const bool whole = kind_ == ListFileKind::SortingList;
        names.push_back(whole ? std::move(named) : CompletePlaylistPath(named, path_));
    }
}

ListFileReader::ListFileReader(TextView path, Prompts& prompts, Language words)
    : path_(path),
      kind_(KindOfListFile(path)),
      prompts_(prompts),
      words_(std::move(words)),
      parser_(kind_, path_) {
    if (Trim(path).empty()) return;
    if (kind_ == ListFileKind::Other)
        prompts_.Inform(NotCompatible(path));
    else
        result_ = file_.Open(path, File::Mode::Read);
}

bool ListFileReader::Step(std::vector<Text>& names) {
    if (!file_.IsOpen()) return false;
    if (ReadPiece(names)) return true;
    if (result_.Ok()) parser_.End(names);  // else half a name may be left
    static_cast<void>(file_.Close());      // nothing was written
    TellTooLong();
    TellRefused();
    return false;
}

bool ListFileReader::ReadPiece(std::vector<Text>& names) {
    result_ = file_.ReadAt(at_, PieceSize, piece_);
    at_ += static_cast<std::int64_t>(piece_.size());
    parser_.Take(piece_, names);
    return result_.Ok() && !piece_.empty();
}

void ListFileReader::TellTooLong() {
    if (parser_.TooLong() == 0) return;
    const auto count = NumberText(static_cast<long long>(parser_.TooLong()));
    const Text told =
        parser_.TooLong() == 1
            ? words_(PLM_TRANSLATE("Texts",
                                   "A line of this list is longer than a file name can be. It was "
                                   "passed over."))
            : words_(PLM_TRANSLATE("Texts",
                                   "%1 lines of this list are longer than a file name can be. They "
                                   "were passed over."),
                     {count});
    prompts_.Inform({u"PLM", told, path_});
}

void ListFileReader::TellRefused() {
    if (parser_.Refused().empty()) return;
    prompts_.Inform(
        LeftOutMessage(words_(PLM_TRANSLATE("Texts", "These were not taken from \"%1\":"), {path_}),
                       parser_.Refused(), words_));
}

void AppendListed(FileList& list, ListFileKind kind, const std::vector<Text>& names) {
    if (kind == ListFileKind::SortingList)
        list.AppendEntries(names);
    else
        list.Append(names);
}

std::vector<Text> ParseListFile(BytesView contents, ListFileKind kind, TextView path,
                                std::vector<Text>& refused) {
    std::vector<Text> names;
    ListFileParser parser(kind, Text(path));
    parser.Take(contents, names);
    parser.End(names);
    refused.insert(refused.end(), parser.Refused().begin(), parser.Refused().end());
    return names;
}

Status LoadListFile(TextView path, FileList& list, Prompts& prompts, const Language& words) {
    ListFileReader reader(path, prompts, words);
    std::vector<Text> names;
    while (reader.Step(names)) {
    }
    AppendListed(list, reader.Kind(), names);
    return reader.Result();
}

}  // namespace mdlPLM

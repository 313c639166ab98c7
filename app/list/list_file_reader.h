// Reading sorting lists and playlists, a piece at a time: a list can name more files than a window
// has time for, and what is no list may have any size.
#pragma once

#include <vector>

#include "app/list/line_groups.h"
#include "core/platform/file.h"
#include "core/text/language.h"

namespace mdlPLM {

/// The most bytes that a line of a list file can have: the longest path of any system, 32,767
/// characters of up to three bytes each, and what a list line says beside it.
inline constexpr std::size_t LongestListLine = std::size_t{128} << 10;

/// Takes the contents of a list file in pieces of any size and gives what their lines name. Lines
/// end in CR LF, LF or CR; a byte order mark in front is passed over. It holds a few lines at most.
class ListFileParser {
public:
    /// `path` is that of the list file.
    ListFileParser(ListFileKind kind, Text path);

    /// Appends what the lines that end in this piece name: list entries of a sorting list, else
    /// paths.
    void Take(BytesView piece, std::vector<Text>& names);
    /// The last line, which needs no end.
    void End(std::vector<Text>& names);
    /// How many lines would name a file but are longer than one can be: they were passed over.
    [[nodiscard]] std::size_t TooLong() const { return tooLong_; }
    /// Names with a line break, which no list file can hold, as one text each: they were left out.
    [[nodiscard]] const std::vector<Text>& Refused() const { return refused_; }

private:
    enum class LineEnd { Double, Single };

    void Keep(BytesView part);
    void EndLine(LineEnd end, std::vector<Text>& names);
    void TakeGroup(const LineGroup& group, std::vector<Text>& names);

    ListFileKind kind_;
    Text path_;
    Bytes line_;
    bool lineIsTooLong_ = false;
    bool firstLine_ = true;
    bool afterCr_ = false;
    LineGroups groups_;
    std::size_t tooLong_ = 0;
    std::vector<Text> refused_;
};

class ListFileReader {
public:
    /// A file of another kind gives the message, and nothing is read; so with a blank path, but for
    /// the message. `prompts` must outlive the reader.
    ListFileReader(TextView path, Prompts& prompts, Language words = {});

    /// Reads the next piece of the file and appends what its lines name: list entries of a sorting
    /// list, else paths. False at the end; what was passed over or left out has been told then.
    bool Step(std::vector<Text>& names);
    [[nodiscard]] ListFileKind Kind() const { return kind_; }
    /// How opening and reading went. A failure is not told; what was read before it counts.
    [[nodiscard]] Status Result() const { return result_; }

private:
    bool ReadPiece(std::vector<Text>& names);
    void TellTooLong();
    void TellRefused();

    Text path_;
    ListFileKind kind_;
    Prompts& prompts_;
    Language words_;
    ListFileParser parser_;
    File file_;
    std::int64_t at_ = 0;
    Bytes piece_;
    Status result_;
};

/// Appends to the list what a list file has named.
void AppendListed(FileList& list, ListFileKind kind, const std::vector<Text>& names);

/// The same as the parser gives, of a whole list file.
std::vector<Text> ParseListFile(BytesView contents, ListFileKind kind, TextView path,
                                std::vector<Text>& refused);

/// Appends the files of a list file in one go. Another kind gives the message and reads nothing; a
/// file that cannot be read is returned as a status and not reported. Names that are refused are
/// told.
Status LoadListFile(TextView path, FileList& list, Prompts& prompts, const Language& words = {});

}  // namespace mdlPLM

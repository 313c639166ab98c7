// Dropped or named things to files: a folder is walked, a list file is read, a single file is taken
// as it is. What becomes of the files, and who is told what could not be read, is the caller's.
#pragma once

#include <optional>
#include <vector>

#include "app/list/folder_walk.h"
#include "app/list/list_file_reader.h"

namespace mdlPLM {

enum class AddAs {
    Dropped,   ///< a folder is walked, a list file is read, any other file is listed
    File,      ///< listed, whatever it is
    ListFile,  ///< read as a list file, whatever it is
};

/// Files that a step has found, in their order.
struct FoundFiles {
    enum class Origin { Folder, ListFile, Itself };
    Origin From = Origin::Itself;
    ListFileKind Kind = ListFileKind::Other;  ///< of the list file
    std::vector<Text> Names;                  ///< paths; entries where a sorting list names them
};

/// The files as paths, whatever named them.
std::vector<Text> PathsOf(FoundFiles found);

/// Takes one thing after the other, each a step at a time.
class FileFinder {
public:
    /// `extension` (without a dot) says which files of a folder are meant. `prompts`, which must
    /// outlive the finder, are told what is wrong with a list file's lines.
    FileFinder(Text extension, Prompts& prompts, Language words = {});

    /// Goes on to another thing; what is left of the one before is given up.
    void Begin(TextView path, AddAs as = AddAs::Dropped);
    /// False, and nothing found, when nothing of the thing is left.
    bool Step(FoundFiles& found);
    /// True when the thing is a single file that the next step gives: that takes no time.
    [[nodiscard]] bool IsAtHand() const { return single_.has_value(); }
    /// The folders of the thing so far that are too deep to be searched.
    [[nodiscard]] const std::vector<Text>& TooDeep() const { return tooDeep_; }
    /// How the thing itself could be opened and read; a folder below it is passed over.
    [[nodiscard]] Status Result() const;

private:
    void Read(TextView path);
    void WalkOn(FoundFiles& found);
    void ReadOn(FoundFiles& found);

    Text extension_;
    Prompts& prompts_;
    Language words_;
    Text path_;
    std::optional<Text> single_;
    std::optional<FolderWalk> walk_;
    std::optional<ListFileReader> reading_;
    std::vector<Text> tooDeep_;
    bool emptyFolder_ = false;
    Status listRead_;
};

}  // namespace mdlPLM

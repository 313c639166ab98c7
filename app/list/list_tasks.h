// Long work on the file list, taken in small steps so that a window answers in between: adding
// files and folders, computing new names, looking at every file.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "app/list/file_finder.h"
#include "app/list/file_list.h"
#include "app/list/list_operations.h"
#include "app/list/run.h"
#include "core/platform/prompts.h"
#include "core/settings/settings.h"
#include "core/text/language.h"

namespace mdlPLM {

/// Work on the file list. Nobody else changes the list's rows meanwhile.
using ListTask = Run;

/// Computes new names; holds all that they depend on, so that nothing that is typed or chosen
/// changes a task under way.
class NameMaker {
public:
    NameMaker(const NamingContext& naming, Text outPattern);
    [[nodiscard]] Text NewName(TextView path) const;

private:
    KeptNaming naming_;
    Text outPattern_;
};

struct AddRequest {
    std::vector<Text> Paths;
    AddAs As = AddAs::Dropped;
    Text Extension;                    ///< without a dot: which files of a folder are listed
    std::optional<NameMaker> Preview;  ///< there while new names are shown
    Language Words;
};

/// Adds files. Those of folders and those chosen by name get a new name while new names are shown;
/// a single file that is dropped and what a list file names get none. Intended.
class AddTask : public ListTask {
public:
    AddTask(FileList& list, AddRequest request, Prompts& prompts);
    bool Step() override;
    void Publish() override;
    void Finish(bool stopped) override;
    [[nodiscard]] RunProgress Progress() const override;

private:
    struct Found {
        Text Path;
        bool WantsName = false;
    };
    void BeginNext();
    void Take(FoundFiles found);
    void MakeReady();
    void EndThing();

    FileList& list_;
    AddRequest request_;
    Prompts& prompts_;
    std::size_t next_ = 0;
    FileFinder finder_;
    std::vector<Text> tooDeep_;
    FoundFiles listed_;  ///< named by the list file under way, not yet in the list
    std::deque<Found> found_;
    std::vector<Text> readyPaths_;
    std::vector<Text> readyNames_;
    std::size_t added_ = 0;
};

/// Computes the new names of rows that are already listed.
class NamesTask : public ListTask {
public:
    NamesTask(FileList& list, NameMaker maker, std::vector<FileList::Index> rows,
              Language words = {});
    bool Step() override;
    void Publish() override;
    [[nodiscard]] RunProgress Progress() const override;

private:
    FileList& list_;
    NameMaker maker_;
    std::vector<FileList::Index> rows_;
    Language words_;
    std::size_t next_ = 0;
    std::size_t published_ = 0;
    std::vector<Text> names_;  ///< of rows_[published_] up to rows_[next_]
};

/// Looks at the files of all rows and applies what was found at the end.
class ScanTask : public ListTask {
public:
    using Apply = std::function<void(ListScan& scan, bool stopped)>;
    ScanTask(Text what, const FileList& list, ListScan scan, Apply apply);
    bool Step() override { return scan_.Step(1); }
    void Finish(bool stopped) override { apply_(scan_, stopped); }
    [[nodiscard]] RunProgress Progress() const override;

private:
    Text what_;
    const FileList& list_;
    ListScan scan_;
    Apply apply_;
};

}  // namespace mdlPLM

// The real program in a folder of its own, started without a display and with none of the user's
// settings.
#pragma once

#include <filesystem>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "tests/support/places.h"
#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::test {

class InstalledProgram {
public:
    InstalledProgram() {
        (void)home_.Folder(u"bin");
        const std::filesystem::path program = NativePath(Program());
        std::error_code otherFileSystem;
        std::filesystem::create_hard_link(ProgramFile(), program, otherFileSystem);
        if (otherFileSystem) std::filesystem::copy_file(ProgramFile(), program);
        const Bytes home = NativePath(home_.Path());
        Environment = {{"HOME", home},
                       {"XDG_CONFIG_HOME", home + "config"},
                       {"XDG_DATA_HOME", home + "data"},
                       {"XDG_RUNTIME_DIR", home + "run"},
                       {"LC_ALL", "C.UTF-8"},
                       {"PATH", "/usr/bin:/bin"}};
    }

    [[nodiscard]] ProgramCall Call(std::vector<Bytes> arguments, const std::vector<Text>& files,
                                   const Bytes& typed = {}) const {
        for (const Text& file : files) arguments.push_back(NativePath(file));
        return {Program(), std::move(arguments), Environment, typed, folder_};
    }
    [[nodiscard]] ProgramResult Run(std::vector<Bytes> arguments, const std::vector<Text>& files,
                                    const Bytes& typed = {}) const {
        return RunToEnd(Call(std::move(arguments), files, typed));
    }
    void StartIn(TextView folder) { folder_ = folder; }
    /// As a package does, which also tells the program that it is installed.
    void InstallHelp() const { (void)home_.File(u"share/pellmore/plm.txt", "help"); }

    [[nodiscard]] Text SettingsFile() const { return home_ / u"config/PLM/PLM.ini"; }
    /// What stands in the program's home, the program itself included.
    [[nodiscard]] std::vector<Bytes> Files() const { return ListTree(home_.Path()); }

    std::map<Bytes, Bytes> Environment;

private:
    [[nodiscard]] Text Program() const { return home_ / u"bin/pellmore"; }
    TempFolder home_;
    Text folder_;
};

}  // namespace mdlPLM::test

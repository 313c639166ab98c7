// The real pellmore-cli in a folder and a home of its own.
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "tests/support/places.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"
#include "tests/support/terminal_run.h"

namespace mdlPLM::test {

using Json = nlohmann::ordered_json;
using Lines = std::vector<Bytes>;

class CliTest : public testing::Test {
protected:
    using Arguments = std::vector<Bytes>;

    /// A call of the program in the folder of the test.
    [[nodiscard]] ProgramCall Call(const Arguments& arguments, const Bytes& input = {}) const {
        return {PathFromNative(CommandLineFile()), arguments, Environment, input, Folder.Path()};
    }
    ProgramResult Cli(const Arguments& arguments, const Bytes& input = {}) const {
        return RunToEnd(Call(arguments, input));
    }
    /// The same line typed into a shell, with "pellmore-cli" in its path.
    ProgramResult Shell(const Bytes& line) const {
        std::map<Bytes, Bytes> environment = Environment;
        environment["PATH"] =
            NativePath(FolderOfPath(PathFromNative(CommandLineFile()))) + ":/usr/bin:/bin";
        return RunToEnd({u"/bin/sh", {"-c", line}, environment, {}, Folder.Path()});
    }

    /// Expects the whole of standard output, nothing on the error stream and status 0.
    void ExpectPrints(const Arguments& arguments, const Bytes& output) const {
        ExpectResult(Cli(arguments), 0, output, "");
    }
    static void ExpectResult(const ProgramResult& result, int status, const Bytes& output,
                             const Bytes& errors) {
        EXPECT_EQ(result.Out, output);
        EXPECT_EQ(result.Errors, errors);
        EXPECT_EQ(result.Status, status);
    }
    /// Standard output, one object per line.
    static std::vector<Json> Objects(const ProgramResult& result) {
        std::vector<Json> objects;
        for (std::size_t begin = 0; begin < result.Out.size();) {
            const std::size_t end = result.Out.find('\n', begin);
            objects.push_back(Json::parse(result.Out.substr(begin, end - begin)));
            begin = end == Bytes::npos ? result.Out.size() : end + 1;
        }
        return objects;
    }

    TempFolder Home;
    TempFolder Folder;
    std::map<Bytes, Bytes> Environment = {{"HOME", NativePath(Home.Path())},
                                          {"XDG_CONFIG_HOME", NativePath(Home / u"config")},
                                          {"XDG_DATA_HOME", NativePath(Home / u"data")},
                                          {"TMPDIR", NativePath(Home.Path())},
                                          {"TERM", "xterm"}};
};

}  // namespace mdlPLM::test

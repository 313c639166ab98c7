// The fuzz targets: one function each over any bytes. The same functions run under libFuzzer and,
// over the seeds and all that was ever found, as ordinary tests.
#pragma once

#include "core/text/text.h"

namespace mdlPLM::fuzz {

/// Each throws BrokenProperty when the program does something else than it should with the input.
void FuzzAlbumText(BytesView input);
void FuzzCommandLine(BytesView input);
void FuzzFrames(BytesView input);
void FuzzID3v1(BytesView input);
void FuzzID3v2(BytesView input);
void FuzzNames(BytesView input);
void FuzzPatterns(BytesView input);
void FuzzRules(BytesView input);
void FuzzSave(BytesView input);
void FuzzSavedLists(BytesView input);
void FuzzSettings(BytesView input);
void FuzzStandard(BytesView input);
void FuzzStream(BytesView input);
void FuzzText(BytesView input);
void FuzzUserLists(BytesView input);

struct Target {
    BytesView Name;  ///< of its source, its program and its folders of seeds and findings
    void (*Run)(BytesView input);
};
inline constexpr Target Targets[] = {
    {"album_text", FuzzAlbumText},
    {"command_line", FuzzCommandLine},
    {"frames", FuzzFrames},
    {"id3v1", FuzzID3v1},
    {"id3v2", FuzzID3v2},
    {"names", FuzzNames},
    {"patterns", FuzzPatterns},
    {"rules", FuzzRules},
    {"save", FuzzSave},
    {"saved_lists", FuzzSavedLists},
    {"settings", FuzzSettings},
    {"standard", FuzzStandard},
    {"stream", FuzzStream},
    {"text", FuzzText},
    {"user_lists", FuzzUserLists},
};

}  // namespace mdlPLM::fuzz

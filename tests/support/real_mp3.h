// MP3 files as users have them: made by a real encoder, tagged by another program.
#pragma once

#include <string>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

/// Runs a program with its arguments, without a shell and with its output thrown away; throws when
/// it cannot be run or does not end with status 0.
void RunProgram(const std::vector<std::string>& words);

/// Half a second of a tone as an MP3 file without any tag, encoded by lame. `pitch` (in hertz)
/// makes files that differ. Encoded once per pitch and process.
Bytes EncodedMp3(int pitch = 440);

/// Tags as the program "id3v2" takes them; empty fields are left out.
struct PeerTags {
    std::string Artist;
    std::string Title;
    std::string Album;
    std::string Year;
    std::string Track;
    int Genre = -1;  ///< number of the genre table; -1: none
};
enum class PeerVersion { V1, V2, Both };

/// Tags an existing file by that program.
void TagByPeer(TextView path, const PeerTags& tags, PeerVersion version = PeerVersion::Both);

}  // namespace mdlPLM

// MP3 files as other programs write them, in every version of the tags and every encoding, and
// some that no program at hand writes any more, made by hand.
#pragma once

#include <vector>

#include "core/text/text.h"

namespace mdlPLM::test {

struct PeerFile {
    Bytes Name;  ///< what it is
    Bytes Contents;
    Bytes Music;   ///< what of the contents is no tag
    Text NewName;  ///< what it is to be called, see NamingOfPeers
    const char* Why = "";
};

/// Made once per process.
const std::vector<PeerFile>& PeerFiles();

/// A picture that stands in some of them.
const Bytes& PeerPicture();

/// The name of the file on the disk, and the output pattern of NewName; the settings are the
/// defaults.
inline constexpr TextView PeerOldName = u"Old - Name.mp3";
inline constexpr TextView PeerOutPattern = u"%track - %artist - %title (%year %genre).mp3";

}  // namespace mdlPLM::test

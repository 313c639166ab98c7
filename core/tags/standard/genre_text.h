// The genre frame: ID3v2.3.0, section 4.2.1, "TCON"; ID3v2.4.0, section 4.2.3.
#pragma once

#include <vector>

#include "core/text/text.h"

namespace mdlPLM::standard {

/// The genres of a frame's values, as names. A number, alone or in brackets, stands for its name
/// ("RX" for "Remix", "CR" for "Cover"); what follows a number in brackets refines it and takes its
/// place; "((" stands for "(". A number without a name stays a number.
std::vector<Text> ParseGenres(const std::vector<Text>& values);

/// The first genre of a value alone.
Text ParseFirstGenre(TextView value);

/// The mirror: the values that a frame holds. In ID3v2.4 the names themselves. In ID3v2.3 one of
/// the 148 names becomes its number in brackets, which readers of every age know; several of them
/// stand in one value, but beside other names each is a value of its own.
std::vector<Text> RenderGenres(const std::vector<Text>& genres, bool v24);

}  // namespace mdlPLM::standard

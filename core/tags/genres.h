// The 148 genres: ID3v1's own 80 and the common extensions of that list.
#pragma once

#include <array>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

inline constexpr int GenreCount = 148;

/// Name of the number in the first character of `oneCharacter`; "Unknown" beyond 147, the empty
/// text for an empty one.
Bytes GetGenreName(BytesView oneCharacter);

/// The same for a number of any size, as a "(nn)" reference holds it; negative is "Unknown" too.
Bytes GenreNameOfNumber(long long number);

/// 255 for the empty text; the number of the exactly equal name (letter case counts); 0 for a name
/// that matches nothing: an unknown genre is stored as "Blues". Kept on purpose.
int GetGenreIndex(BytesView name);

/// The 148 names in alphabetical order (letter case ignored), for the drop-down lists.
/// `v2Spelling` gives the list of the ID3v2 box, which spells entry 82 "Natianal Folk".
std::vector<Bytes> SortedGenreNames(bool v2Spelling = false);

}  // namespace mdlPLM

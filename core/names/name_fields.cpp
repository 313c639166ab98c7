#include "core/names/name_fields.h"

#include <string>

#include "core/tags/genres.h"

namespace mdlPLM {

Bytes TrackInName(char track) {
    return track == '\0' ? Bytes() : std::to_string(static_cast<unsigned char>(track));
}

Bytes GenreInName(char genre) { return GetGenreName(BytesView(&genre, 1)); }

}  // namespace mdlPLM

// Records of tags compared field by field.
#pragma once

#include "core/tags/frames.h"
#include "core/tags/id3v1.h"
#include "fuzz/property.h"

namespace mdlPLM::fuzz {

inline constexpr Bytes ID3v1Tag::*V1Fields[] = {&ID3v1Tag::Tag,    &ID3v1Tag::Title,
                                                &ID3v1Tag::Artist, &ID3v1Tag::Album,
                                                &ID3v1Tag::Year,   &ID3v1Tag::Comment};

inline void RequireSame(const ID3v1Tag& a, const ID3v1Tag& b, const char* what) {
    for (const auto field : V1Fields) RequireEqual(a.*field, b.*field, what);
    Require(a.Track == b.Track && a.Genre == b.Genre, what);
}

inline void RequireSame(const ID3v2Tag& a, const ID3v2Tag& b, const char* what) {
    RequireEqual(a.ID, b.ID, what);
    RequireEqual(a.Version, b.Version, what);
    for (const KnownFrame& frame : KnownFrames) RequireEqual(a.*frame.Field, b.*frame.Field, what);
    RequireEqual(a.OtherFrames, b.OtherFrames, what);
}

}  // namespace mdlPLM::fuzz

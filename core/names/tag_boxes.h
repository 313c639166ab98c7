// The boxes of the tag panel, without their widgets: what the user sees and may have edited.
#pragma once

#include "core/text/text.h"

namespace mdlPLM {

struct TagBoxes {
    bool chkID3v1 = false;
    Text txtTitle;
    Text txtArtist;
    Text txtAlbum;
    Text txtYear;
    Text cmbGenre;
    Text txtTrackNr;
    Text txtComments;
    bool chkID3v1Rem = false;

    bool chkID3v2 = false;
    Text txtV2Title;
    Text txtV2Artist;
    Text txtV2Album;
    Text txtV2Year;
    Text cmbV2Genre;
    Text txtV2Track;
    Text txtV2Comments;
    Text txtV2Composer;
    Text txtV2OrigArtist;
    Text txtV2Copyright;
    Text txtV2URL;
    Text txtV2Encoder;
    bool chkID3v2Rem = false;
};

}  // namespace mdlPLM

// What a rename run writes into the tags of a file: the boxes that hold for all files, the file's
// own values, and the new name for what is still empty.
#pragma once

#include "core/settings/settings.h"
#include "core/tags/id3v1.h"
#include "core/tags/id3v2.h"

namespace mdlPLM {

/// The boxes of the window as they stand when the run starts.
struct RunTagChoices {
    bool chkArtist4All = false;
    bool chkAlbum4All = false;
    bool chkYear4All = false;
    bool chkGenre4All = false;
    bool chkRelease4All = false;
    Text txtArtist;
    Text txtAlbum;
    Text txtYear;
    Text cmbGenre;
    Text txtReleaseDate;
    Text OutPattern;  ///< finds the fields in the new name
};

/// The record to write, made from the one the file had. A field is empty when it is all NUL; genre
/// 255 and track NUL count as empty. What nothing asks for keeps its bytes.
ID3v1Tag FillID3v1(const ID3v1Tag& own, TextView newName, const RunTagChoices& choices,
                   const Settings& settings);

/// A tag of the second version as its file has it; `Header` and `TagText` as
/// ID3v2Parts::FieldsAndText gives them.
struct OwnID3v2 {
    ID3v2Tag Tag;
    Bytes Header;
    Bytes TagText;
};

/// The same for the second version, where a field of blanks is empty too. The genre becomes
/// "(n)name". A frame that keeps its value and cannot be written again from its text (another
/// encoding, a plain-text genre) is handed on as it stands. The other frames go when the settings
/// say so.
ID3v2Tag FillID3v2(const OwnID3v2& own, TextView newName, const RunTagChoices& choices,
                   const Settings& settings);

}  // namespace mdlPLM

// What the user chose for a sort.
#pragma once

#include "core/settings/settings.h"
#include "core/text/language.h"

namespace mdlPLM {

/// The controls of the main window that a sort reads, as they stand when it starts.
struct SortChoices {
    SortMethod Method = SortMethod::Rename;
    IfExists Exists = IfExists::Prompt;
    Text txtTargetDir;
    bool chkConvert = true;
    bool chkGenre = false;
    bool chkAlphabetical = false;
    bool chkSubFolder = false;
    Text txtSubFolder = u"5";
    Text OutPattern;
    Text txtNewName;  ///< the new-name box: the name of the one selected file
    Language Words;   ///< why a file is not sorted is said in it
};

}  // namespace mdlPLM

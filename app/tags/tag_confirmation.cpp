#include "app/tags/tag_panel.h"

namespace mdlPLM {

namespace {

Text Section(const TagBoxes& boxes, TagVersion version) {
    const bool first = version == TagVersion::V1;
    const Text name = first ? u"ID3v1" : u"ID3v2";
    if (first ? boxes.chkID3v1Rem : boxes.chkID3v2Rem) return name + u" tags will be REMOVED!";
    Text section = name + u" (" + name + u" will be added if nonexistent):";
    for (const TagBoxRow& row : TagBoxTable)
        if (row.Version == version && !(boxes.*row.Value).empty())
            section.append(CrLf).append(row.Label).append(boxes.*row.Value);
    return section;
}

}  // namespace

Text ConfirmationText(const TagBoxes& boxes) {
    Text question = u"The following attributes will be changed for ALL selected files:";
    for (const TagVersion version : {TagVersion::V1, TagVersion::V2})
        question.append(CrLf).append(CrLf).append(Section(boxes, version));
    return question;
}

}  // namespace mdlPLM

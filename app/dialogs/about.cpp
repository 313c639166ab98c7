#include "app/dialogs/about.h"

namespace mdlPLM {

Message AboutMessage(int major, int revision) {
    Message about;
    about.Title = u"Pellmore";
    about.Body = Text(u"Pellmore").append(CrLf);
    about.Body.append(u"Version: ").append(NumberText(static_cast<long long>(major)));
    about.Body.append(u".").append(NumberText(static_cast<long long>(revision))).append(CrLf);
    about.Body.append(u"This is FREEWARE! NO WARRANTY!");
    return about;
}

}  // namespace mdlPLM

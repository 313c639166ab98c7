#include "app/shared/save_settings.h"

namespace mdlPLM {

void SaveSettings(AppContext& context) {
    const Status saved = context.Store.Save();
    if (saved.Ok() || context.StoreFailureTold) return;
    context.StoreFailureTold = true;
    context.Ask.Critical({{},
                          u"The settings could not be saved. They hold until the program ends." +
                              Text(CrLf) + ErrorMessage(saved.Number()),
                          context.Store.Path()});
}

}  // namespace mdlPLM

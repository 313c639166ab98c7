#include "app/shared/qt_save_settings.h"

#include <QCoreApplication>

#include "app/shared/qt_text.h"

namespace mdlPLM {

void SaveSettings(AppContext& context) {
    const Status saved = context.Store.Save();
    if (saved.Ok() || context.StoreFailureTold) return;
    context.StoreFailureTold = true;
    const QString what = QCoreApplication::translate(
        "SaveSettings", "The settings could not be saved. They hold until the program ends.");
    context.Ask.Critical(
        {{}, FromQt(what).append(CrLf).append(ErrorMessage(saved.Number())), context.Store.Path()});
}

}  // namespace mdlPLM

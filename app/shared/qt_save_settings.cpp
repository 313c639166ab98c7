#include "app/shared/qt_save_settings.h"

#include <QCoreApplication>

#include "app/shared/qt_language.h"
#include "app/shared/qt_text.h"

namespace mdlPLM {

void TellUnreadSettings(AppContext& context, Status read) {
    if (read.Ok() || context.StoreFailureTold) return;
    context.StoreFailureTold = true;
    const QString what = QCoreApplication::translate(
        "SaveSettings",
        "The settings could not be read. The defaults hold until the program ends, and the file is "
        "left as it is.");
    context.Ask.Critical({{},
                          FromQt(what).append(CrLf).append(UnreadStoreText(read, UserLanguage())),
                          context.Store.Path()});
}

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

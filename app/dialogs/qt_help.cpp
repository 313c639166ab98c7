#include "app/dialogs/qt_help.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#include "app/shared/qt_text.h"

namespace mdlPLM {
namespace {

bool OpenText(const QString& path) {
#ifdef Q_OS_WIN
    return QProcess::startDetached(QStringLiteral("notepad.exe"), {path});
#else
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
#endif
}

}  // namespace

QString OpenHelp(TextView programFolder, Disk& disk) {
    const QString path = ToQt(HelpFilePath(programFolder, disk));
    const QString told =
        OpenText(path)
            ? QCoreApplication::translate("Help", "The help is in the file \"%1\".")
            : QCoreApplication::translate("Help",
                                          "No program opens text files here. The help is in "
                                          "the file \"%1\".");
    return told.arg(path);
}

}  // namespace mdlPLM

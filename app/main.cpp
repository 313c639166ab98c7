// Picks batch mode or window; nothing else.

#include <QApplication>
#include <cstdlib>
#include <iostream>

#include "app/dialogs/qt_player.h"
#include "app/dialogs/releasing_disk.h"
#include "app/shared/qt_close_at_signal.h"
#include "app/shared/qt_file_dialogs.h"
#include "app/shared/qt_hint_colour.h"
#include "app/shared/qt_icons.h"
#include "app/shared/qt_language.h"
#include "app/shared/qt_prompts.h"
#include "app/shared/qt_save_settings.h"
#include "app/shared/qt_tool_tip_wrapper.h"
#include "app/start/start_up.h"
#include "app/window/frmPLM.h"
#include "core/platform/path.h"
#include "core/platform/stop_signals.h"
#include "core/platform/tidy_disk.h"
#include "core/text/code_page.h"

using namespace mdlPLM;

namespace {

/// The toolkit aborts when it cannot reach the display. That is the user's to mend, so it is said.
void OnToolkitMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    std::cerr << qFormatLogMessage(type, context, message).toStdString() << std::endl;
    if (type != QtFatalMsg) return;
    std::cerr << '\n' << ToUtf8(NoDisplayText(ConsoleLanguage(QLocale::system()))) << std::flush;
    std::_Exit(2);
}

/// Everything that needs the window system, made when it is first needed.
class WindowSystem {
public:
    explicit WindowSystem(char* programName) : arguments_{programName, nullptr} {
        QApplication::setApplicationName(QStringLiteral("Pellmore"));
        QApplication::setDesktopFileName(QStringLiteral("pellmore"));
        const QtMessageHandler before = qInstallMessageHandler(OnToolkitMessage);
        application_ = std::make_unique<QApplication>(count_, arguments_);
        qInstallMessageHandler(before);
        InstallTranslation(*application_, QLocale::system());
        MakeHintsLegible(*application_);
        QApplication::setWindowIcon(Icon(IconName::Program));
        application_->installEventFilter(&toolTips_);
    }

    int OpenWindow(StartData& data, const std::vector<Text>& listPaths) {
        MediaPlayer player(LoadedPlayers(PlayerFolders(QApplication::applicationDirPath())));
        LeftOvers leftOvers;
        TidyDisk systemDisk(leftOvers);
        ReleasingDisk disk(systemDisk, player);
        QtPrompts prompts;
        QtFileDialogs dialogs;
        AppContext context{data.Values, data.Replacements, data.Store,         disk,  prompts,
                           dialogs,     data.ListsFolder,  data.ProgramFolder, false, &leftOvers};
        leftOvers.LookBeside(data.Store.Path());
        frmPLM window(context, player);
        const CloseAtSignal close(StopSignalDescriptor(), &window);
        window.show();
        TellUnreadSettings(context, data.StoreRead);
        if (!listPaths.empty()) window.AddPaths(listPaths);
        return QApplication::exec();
    }

private:
    int count_ = 1;  // what is named on the command line is ours, never the toolkit's
    char* arguments_[2];
    ToolTipWrapper toolTips_;
    std::unique_ptr<QApplication> application_;
};

const char* Variable(const char* name) { return std::getenv(name); }

}  // namespace

int main(int count, char** arguments) {
    // A question at the terminal has to end.
    TakeStopSignals(WaitingCalls::End);
    std::vector<Text> given;
    for (int i = 1; i < count; ++i) given.push_back(PathFromNative(arguments[i]));
    const auto askInBox = [arguments](const Message& question) {
        const WindowSystem windows(arguments[0]);
        const CloseAtSignal close(StopSignalDescriptor());
        return QtPrompts().AskText(question);
    };
    const auto openWindow = [arguments](StartData& data, const std::vector<Text>& listPaths) {
        // Not every library that a window needs takes a call up again.
        TakeStopSignals(WaitingCalls::GoOn);
        return WindowSystem(arguments[0]).OpenWindow(data, listPaths);
    };
    return RunProgram(
        given, {std::cin, std::cout, std::cerr, SystemFolders(), HasDisplay(Variable), askInBox,
                openWindow, ConsoleLanguage(QLocale::system()), [] { return StopAsked() != 0; }});
}

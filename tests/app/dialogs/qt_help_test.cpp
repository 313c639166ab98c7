#include "app/dialogs/qt_help.h"

#include <QDesktopServices>
#include <QTest>
#include <QUrl>

#include "app/shared/qt_text.h"
#include "tests/support/qt_text_viewer.h"
#include "tests/support/temp_folder.h"

using namespace mdlPLM;

class qt_help_test : public QObject {
    Q_OBJECT

private slots:
    void theHelpTextIsHandedToTheSystemsProgram();
    void aMissingHelpTextIsThatProgramsToReport();
    void withoutSuchAProgramTheFileIsNamed();

private:
    TempFolder folder_;
    SystemDisk disk_;
};

void qt_help_test::theHelpTextIsHandedToTheSystemsProgram() {
    test::TextViewer viewer;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &viewer, "open");
    const Text help = folder_.File(u"50% #1 å/plm.txt", "help");
    QCOMPARE(OpenHelp(folder_ / u"50% #1 å", disk_),
             QStringLiteral("The help is in the file \"%1\".").arg(ToQt(help)));
    QCOMPARE(viewer.Opened.size(), 1);
    QCOMPARE(viewer.Opened[0].toLocalFile(), ToQt(help));
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

void qt_help_test::aMissingHelpTextIsThatProgramsToReport() {
    test::TextViewer viewer;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &viewer, "open");
    QVERIFY(OpenHelp(folder_ / u"nowhere", disk_).startsWith(QStringLiteral("The help is in ")));
    QCOMPARE(viewer.Opened.size(), 1);
    QCOMPARE(viewer.Opened[0].toLocalFile(), ToQt(folder_ / u"nowhere/plm.txt"));
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

void qt_help_test::withoutSuchAProgramTheFileIsNamed() {
    // The platform that tests run on opens nothing.
    const QString told = OpenHelp(folder_.Path(), disk_);
    QVERIFY(told.startsWith(QStringLiteral("No program opens text files here. ")));
    QVERIFY(told.contains(u'"' + ToQt(folder_ / u"plm.txt") + u'"'));
}

QTEST_MAIN(qt_help_test)
#include "qt_help_test.moc"

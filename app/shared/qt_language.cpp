#include "app/shared/qt_language.h"

#include <QCoreApplication>
#include <QTranslator>

#include "app/shared/qt_text.h"

static void LinkTranslations() { Q_INIT_RESOURCE(translations); }

namespace mdlPLM {

namespace {

/// Our texts, and those of the toolkit's that the user sees.
constexpr const char* Catalogues[] = {"pellmore", "toolkit"};

void Install(QCoreApplication& application, const QString& language) {
    for (const char* catalogue : Catalogues) {
        auto* translator = new QTranslator(&application);
        const QString file = QLatin1String(catalogue) + u'_' + language;
        if (translator->load(file, QStringLiteral(":/translations")))
            QCoreApplication::installTranslator(translator);
        else
            delete translator;
    }
}

}  // namespace

void InstallTranslation(QCoreApplication& application, const QLocale& locale) {
    LinkTranslations();
    Install(application, locale.uiLanguages().value(0).section(u'-', 0, 0));
}

Language UserLanguage() {
    return Language(
        [](const char* own) { return FromQt(QCoreApplication::translate("Texts", own)); });
}

}  // namespace mdlPLM

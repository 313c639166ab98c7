#include "app/shared/qt_language.h"

#include <QTranslator>
#include <memory>

#include "core/text/code_page.h"

static void LinkTranslations() { Q_INIT_RESOURCE(translations); }

namespace mdlPLM {

namespace {

/// Our texts, and those of the toolkit's that the user sees.
constexpr const char* Catalogues[] = {"pellmore", "toolkit"};

bool Load(QTranslator& translator, const char* catalogue, const QLocale& locale) {
    LinkTranslations();
    const QString language = locale.uiLanguages().value(0).section(u'-', 0, 0);
    return translator.load(QLatin1String(catalogue) + u'_' + language,
                           QStringLiteral(":/translations"));
}

}  // namespace

void InstallTranslation(QCoreApplication& application, const QLocale& locale) {
    for (const char* catalogue : Catalogues) {
        auto translator = std::make_unique<QTranslator>(&application);
        if (Load(*translator, catalogue, locale))
            QCoreApplication::installTranslator(translator.release());
    }
}

Language ConsoleLanguage(const QLocale& locale) {
    const auto translator = std::make_shared<QTranslator>();
    if (!Load(*translator, Catalogues[0], locale)) return {};
    return Language([translator](const char* own) {
        const QString found = translator->translate("Texts", own);
        return found.isEmpty() ? FromUtf8(own) : FromQt(found);
    });
}

}  // namespace mdlPLM

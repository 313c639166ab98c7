// The user's language: our own translations, as resources of the program.
#pragma once

#include <QCoreApplication>
#include <QLocale>

#include "app/shared/qt_text.h"
#include "core/text/language.h"

namespace mdlPLM {

/// Installs the translation into the language that the locale's user reads. Where there is none,
/// texts are as they are written.
void InstallTranslation(QCoreApplication& application, const QLocale& locale);

/// The same for a program that opens no window, and so installs none.
Language ConsoleLanguage(const QLocale& locale);

/// The installed translation, for the texts of the widget-free half.
inline Language UserLanguage() {
    return Language(
        [](const char* own) { return FromQt(QCoreApplication::translate("Texts", own)); });
}

}  // namespace mdlPLM

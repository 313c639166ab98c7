// The user's language: our own translations, as resources of the program.
#pragma once

#include <QLocale>

#include "core/text/language.h"

class QCoreApplication;

namespace mdlPLM {

/// Installs the translation into the language that the locale's user reads. Where there is none,
/// texts are as they are written.
void InstallTranslation(QCoreApplication& application, const QLocale& locale);

/// The installed translation, for the texts of the widget-free half.
Language UserLanguage();

}  // namespace mdlPLM

// The library's translations: its texts in another language, switched at run time.
#pragma once

#include "libbedrock_export.h"

#include <QLocale>

/*
 * Installs the library's translator for `locale` into the application (which
 * must exist), replacing the one a previous call installed; true when the
 * library has a translation for it. The library ships Canadian French; any
 * other French locale gets it too. Qt's own texts (standard dialog buttons)
 * follow when Qt's translation for the locale is installed on the system.
 * An English locale, or one without a translation, removes the library's
 * translator and gives false. Call it before building the widgets: texts
 * already shown are not retranslated.
 */
LIBBEDROCK_EXPORT bool installLibBedrockTranslator(QLocale const& locale);

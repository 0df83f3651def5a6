#include "translation.h"
#include "translation_p.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QPointer>
#include <QTranslator>

namespace {

// The translators a previous call installed; the application object owns them.
QPointer<QTranslator> s_library;
QPointer<QTranslator> s_qt;

void drop(QPointer<QTranslator>& translator)
{
    if (translator) {
        QCoreApplication::removeTranslator(translator);
        delete translator;
    }
}

} // namespace

bool installLibBedrockTranslator(QLocale const& locale)
{
    QCoreApplication* app = QCoreApplication::instance();
    if (!app)
        return false;
    drop(s_library);
    drop(s_qt);

    auto* library = new QTranslator(app);
    const QString dir = QStringLiteral(":/i18n");
    const QString name = QStringLiteral("libbedrock");
    bool found = library->load(locale, name, QStringLiteral("_"), dir);
    // French is written for Canada: a French user elsewhere reads it too.
    if (!found && locale.language() == QLocale::French)
        found = library->load(QLocale(QLocale::French, QLocale::Canada), name, QStringLiteral("_"),
                              dir);
    if (!found) {
        delete library;
        return false;
    }
    QCoreApplication::installTranslator(library);
    s_library = library;

    auto* qt = new QTranslator(app);
    if (qt->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(qt);
        s_qt = qt;
    } else {
        delete qt;
    }
    return true;
}

QString Bedrock::translatedTableText(const char* latin1)
{
    // The marks in the tables are the source spelling; the lookup key is its UTF-8.
    const QByteArray key = QString::fromLatin1(latin1).toUtf8();
    return QCoreApplication::translate("CT1ComboBox", key.constData());
}

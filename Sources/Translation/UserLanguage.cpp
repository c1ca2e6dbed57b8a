#include "UserLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace perchly {

namespace {

bool load(const QLocale &language, const QString &name, const QString &folder) {
    auto *translator = new QTranslator(QCoreApplication::instance());
    return translator->load(language, name, QStringLiteral("_"), folder) &&
           QCoreApplication::installTranslator(translator);
}

} // namespace

void loadUserLanguage() {
    const QLocale language(QLocale::system().uiLanguages().value(0));
    if (language.language() != QLocale::English && language.language() != QLocale::C &&
        load(language, QStringLiteral("perchly"), QStringLiteral(":/translations"))) {
        load(language, QStringLiteral("qtbase"),
             QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    }
}

} // namespace perchly

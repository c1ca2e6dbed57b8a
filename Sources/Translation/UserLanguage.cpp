#include "UserLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace perchly {

namespace {

QLocale userLanguage() {
    return QLocale(QLocale::system().uiLanguages().value(0));
}

bool isEnglish(const QLocale &language) {
    return language.language() == QLocale::English || language.language() == QLocale::C;
}

bool load(const QLocale &language, const QString &name, const QString &folder) {
    auto *translator = new QTranslator(QCoreApplication::instance());
    return translator->load(language, name, QStringLiteral("_"), folder) &&
           QCoreApplication::installTranslator(translator);
}

} // namespace

void loadUserLanguage() {
    const QString texts = QStringLiteral("perchly");
    const QString folder = QStringLiteral(":/translations");
    const QLocale language = userLanguage();
    if (isEnglish(language) || !load(language, texts, folder)) {
        load(QLocale::English, texts, folder); // "1 minute", "2 minutes"
    } else {
        load(language, QStringLiteral("qtbase"),
             QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    }
}

void loadUserLanguageToPrint() {
    if (QCoreApplication::instance() == nullptr && !isEnglish(userLanguage())) {
        static int arguments = 0;
        new QCoreApplication(arguments, nullptr); // until the process ends
        loadUserLanguage();
    }
}

} // namespace perchly

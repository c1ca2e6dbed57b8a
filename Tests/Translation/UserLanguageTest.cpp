#include "UserLanguage.h"

#include <QTest>

using namespace perchly;

class UserLanguageTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void showsTheFirstLanguageOrEnglish() {
        loadUserLanguage();
        QCOMPARE(QCoreApplication::translate("Footer", "Quit"),
                 qEnvironmentVariable("PERCHLY_TEST_WORD"));
    }
};

QTEST_GUILESS_MAIN(UserLanguageTest)
#include "UserLanguageTest.moc"

#include "UserLanguage.h"

#include <QTest>

using namespace perchly;

class UserLanguageTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void showsTheFirstLanguageOrEnglish() {
        loadUserLanguage();
        QCOMPARE(QCoreApplication::translate("FocusToolsView", "%n minutes", nullptr, 1),
                 qEnvironmentVariable("PERCHLY_TEST_TEXT"));
    }
};

QTEST_GUILESS_MAIN(UserLanguageTest)
#include "UserLanguageTest.moc"

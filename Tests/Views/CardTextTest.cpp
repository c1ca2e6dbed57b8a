#include "CardText.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

class CardTextTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyLocaleHasItsOwnClockAndDay_data() {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("day");
        QTest::addColumn<QString>("month");
        const auto row = [](const char *name, const char *time, const char *day,
                            const char *month) {
            QTest::newRow(name) << QString::fromLatin1(name) << QString::fromUtf8(time)
                                << QString::fromUtf8(day) << QString::fromUtf8(month);
        };
        row("en_US", "9:05 AM", "Tuesday, Mar 3", "March 2026");
        row("en_GB", "09:05", "Tuesday, 3 Mar", "March 2026");
        row("C", "09:05", "Tuesday, 3 Mar", "March 2026");
    }

    void everyLocaleHasItsOwnClockAndDay() {
        QFETCH(QString, locale);
        const QLocale used = locale == QLatin1StringView("C") ? QLocale::c() : QLocale(locale);
        const QDate date(2026, 3, 3);
        // Some versions put a narrow space before the marker.
        QString time = CardText::timeOfDay(QTime(9, 5, 59), used);
        time.replace(QChar(0x202f), QLatin1Char(' '));
        QTEST(time, "time");
        QTEST(CardText::dayLine(date, used), "day");
        QTEST(CardText::monthLine(date, used), "month");
    }
};

namespace {

const RegisteredTest<CardTextTest> registeredCardTextTest;

} // namespace

} // namespace perchly

#include "CardTextTest.moc"

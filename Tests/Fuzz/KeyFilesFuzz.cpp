#include "CalendarSource.h"
#include "Fuzz.h"
#include "IconTheme.h"
#include "RunningApplications.h"

void perchly::fuzz(const QByteArray &input) {
    std::ofstream("index.theme") << input.toStdString();
    const QString here = QStringLiteral(".");
    assert(IconTheme(here, {here}).file(QStringLiteral("missing"), 48).isEmpty());
    CalendarSources sources;
    addSource(sources, QStringLiteral("uid"), input);
    assert(!desktopUnitName(input, {}).contains(u'/'));
}

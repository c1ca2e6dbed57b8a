#include "Fuzz.h"
#include "LaunchGroups.h"
#include "MediaActivity.h"
#include "StoredRecords.h"

void perchly::fuzz(const QByteArray &input) {
    if (const auto groups = decodeRecords<LaunchGroup>(input)) {
        const QByteArray stored = encodeRecords(*groups);
        assert(encodeRecords(decodeRecords<LaunchGroup>(stored).value()) == stored);
    }
    const QString title = decodeMediaReading(input).activity.value_or(MediaActivity()).title;
    assert(textToShow(title) == title && !title.contains(QChar(0x202e)));
}

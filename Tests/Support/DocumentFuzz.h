#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

namespace perchly {

/// The document with a few parts of it overwritten, removed, repeated or filled up.
inline QByteArray damaged(QByteArray document, QRandomGenerator &random) {
    static const QByteArray alphabet =
        QByteArrayLiteral("[]{}\",:\\0123456789eE.-+tfn\0\xff\xc3 \n");
    const auto below = [&random](qsizetype bound) { return qsizetype(random.bounded(int(bound))); };
    for (qsizetype edits = 1 + below(4); edits > 0 && !document.isEmpty(); --edits) {
        const qsizetype at = below(document.size());
        switch (random.bounded(4)) {
        case 0:
            document[at] = alphabet.at(below(alphabet.size()));
            break;
        case 1:
            document.remove(at, 1 + below(30));
            break;
        case 2:
            document.insert(at, document.mid(below(document.size()), below(60)));
            break;
        default:
            document.insert(at, QByteArray(1 + below(2000), alphabet.at(below(4))));
        }
    }
    return document;
}

/// Gives a decoder damaged documents for a while: whatever it takes must be the same after being
/// stored again. PERCHLY_FUZZ_SECONDS makes it longer.
template <class Decode, class Encode>
void fuzzDecoder(const QByteArray &document, Decode decode, Encode encode) {
    const int seconds = qEnvironmentVariableIntValue("PERCHLY_FUZZ_SECONDS");
    const qint64 span = seconds > 0 ? seconds * 1000LL : 300;
    const auto seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    QElapsedTimer timer;
    timer.start();
    int accepted = 0;
    while (timer.elapsed() < span) {
        if (const auto records = decode(damaged(document, random))) {
            ++accepted;
            QVERIFY2(decode(encode(*records)) == records,
                     qPrintable(QStringLiteral("seed %1").arg(seed)));
        }
    }
    QVERIFY2(accepted > 0, "nothing that was tried is a document");
}

} // namespace perchly

#include "XSettings.h"

#include <QDataStream>
#include <QTest>

using namespace perchly;

class XSettingsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void readsTextsInEitherByteOrder() {
        for (const auto order : {QDataStream::LittleEndian, QDataStream::BigEndian}) {
            QByteArray data;
            QDataStream stream(&data, QIODevice::WriteOnly);
            stream.setByteOrder(order);
            const auto name = [&](quint8 type, const QByteArray &text) {
                stream << type << quint8(0) << quint16(text.size());
                stream.writeRawData(text.constData(), int(text.size()));
                stream << quint32(1);
            };
            stream << quint8(order == QDataStream::BigEndian ? 1 : 0) << quint8(0) << quint16(0)
                   << quint32(7) << quint32(3);
            name(0, "Size"); // a number
            stream << quint32(9);
            name(2, "Tint"); // a colour
            stream << quint64(9);
            name(1, "Icon");
            stream << quint32(5);
            stream.writeRawData("Shine\0\0\0", 8);
            QCOMPARE(parseXSettings(data).value("Icon"), QStringLiteral("Shine"));
            QVERIFY(parseXSettings(data.chopped(4)).isEmpty()); // a truncated text
        }
    }
};

QTEST_GUILESS_MAIN(XSettingsTest)
#include "XSettingsTest.moc"

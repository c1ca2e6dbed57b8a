#include "XSettings.h"

#include <QDataStream>

namespace perchly {

namespace {

constexpr quint32 maxSettingsWords = 1 << 16;
enum SettingType : quint8 { Integer, Text, Color };

QByteArray bytes(QDataStream &stream, quint32 length) {
    QByteArray result(qsizetype(qMin(length, 4 * maxSettingsWords)), '\0');
    stream.readRawData(result.data(), int(result.size()));
    stream.skipRawData(int((4 - length % 4) % 4));
    return result;
}

} // namespace

QHash<QByteArray, QString> parseXSettings(const QByteArray &data) {
    QDataStream stream(data);
    quint8 byteOrder = XCB_IMAGE_ORDER_LSB_FIRST;
    stream >> byteOrder;
    stream.setByteOrder(byteOrder == XCB_IMAGE_ORDER_LSB_FIRST ? QDataStream::LittleEndian
                                                               : QDataStream::BigEndian);
    stream.skipRawData(3 + 4); // padding, serial
    quint32 count = 0;
    stream >> count;
    QHash<QByteArray, QString> texts;
    for (quint32 index = 0; index < count && stream.status() == QDataStream::Ok; ++index) {
        quint8 type = 0;
        quint16 nameLength = 0;
        stream >> type;
        stream.skipRawData(1);
        stream >> nameLength;
        const QByteArray name = bytes(stream, nameLength);
        stream.skipRawData(4); // serial
        if (type == Text) {
            quint32 length = 0;
            stream >> length;
            texts.insert(name, QString::fromUtf8(bytes(stream, length)));
        } else {
            stream.skipRawData(type == Integer ? 4 : 8);
        }
    }
    return stream.status() == QDataStream::Ok ? texts : QHash<QByteArray, QString>();
}

XSettings::XSettings() {
    connect(&m_manager, &SelectionWatch::changed, this, &XSettings::follow);
    connect(&m_connection, &XcbConnection::eventArrived, this, &XSettings::handleEvent);
    follow();
}

void XSettings::follow() {
    if (m_manager.owner() != XCB_WINDOW_NONE) {
        m_connection.selectEvents(m_manager.owner(), XCB_EVENT_MASK_PROPERTY_CHANGE);
        read();
    }
}

void XSettings::read() {
    const xcb_atom_t property = m_connection.atom("_XSETTINGS_SETTINGS");
    const auto answer = m_connection.reply<xcb_get_property_reply_t>(xcb_get_property(
        m_connection.get(), 0, m_manager.owner(), property, property, 0, maxSettingsWords));
    if (answer && answer->format == 8) {
        m_texts = parseXSettings({static_cast<const char *>(xcb_get_property_value(answer.get())),
                                  xcb_get_property_value_length(answer.get())});
        Q_EMIT changed();
    }
}

void XSettings::handleEvent(const xcb_generic_event_t *event) {
    if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY &&
        reinterpret_cast<const xcb_property_notify_event_t *>(event)->window == m_manager.owner()) {
        read();
    }
}

} // namespace perchly

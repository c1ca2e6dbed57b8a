#include "StartupSequence.h"
#include "XClient.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace perchly;

class StartupSequenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        m_client = std::make_unique<XClient>();
        const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_client->get(), m_client->root(), XCB_CW_EVENT_MASK, &mask);
        m_client->sync();
    }

    void announcesAProgram() {
        const QByteArray first =
            startupsequence::begin("A \"long\" näme that needs several messages");
        const QByteArray second = startupsequence::begin("B");
        QVERIFY(first != second);
        QVERIFY2(QRegularExpression(QStringLiteral("_TIME[1-9][0-9]*$"))
                     .match(QString::fromUtf8(first))
                     .hasMatch(),
                 first.constData());
        QCOMPARE(messages(),
                 QByteArrayList(
                     {"new: ID=\"" + first +
                          "\" NAME=\"A \\\"long\\\" näme that needs several messages\" SCREEN=0",
                      "new: ID=\"" + second + "\" NAME=\"B\" SCREEN=0"}));
    }

    void withdrawsAProgram() {
        startupsequence::withdraw("an identifier");
        QCOMPARE(messages(), QByteArrayList{"remove: ID=\"an identifier\""});
    }

    void isSilentWithoutAServer() {
        const QByteArray display = qgetenv("DISPLAY");
        const auto reset = qScopeGuard([&] { qputenv("DISPLAY", display); });
        qunsetenv("DISPLAY");
        QVERIFY(startupsequence::begin("A").isEmpty());
        startupsequence::withdraw("an identifier");
    }

private:
    /// The messages that have come to the root window.
    [[nodiscard]] QByteArrayList messages() const {
        m_client->sync();
        const xcb_atom_t begin = m_client->atom("_NET_STARTUP_INFO_BEGIN");
        const xcb_atom_t more = m_client->atom("_NET_STARTUP_INFO");
        QByteArrayList found;
        while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_client->get())}) {
            if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE) {
                continue;
            }
            const auto *message = reinterpret_cast<xcb_client_message_event_t *>(event.get());
            if (message->type == begin) {
                found.append(QByteArray());
            } else if (message->type != more || found.isEmpty()) {
                continue;
            }
            found.last().append(reinterpret_cast<const char *>(message->data.data8), 20);
        }
        for (QByteArray &text : found) {
            text.truncate(std::max(text.indexOf('\0'), qsizetype(0)));
        }
        return found;
    }

    std::unique_ptr<XClient> m_client;
};

QTEST_GUILESS_MAIN(StartupSequenceTest)
#include "StartupSequenceTest.moc"

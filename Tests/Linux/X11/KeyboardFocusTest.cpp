#include "KeyboardFocus.h"
#include "XClient.h"

#include <QTest>

using namespace perchly;

class KeyboardFocusTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_panel = m_client.makeWindow({500, 0, 200, 40}, XClient::Managed::No);
        show(m_panel);
        m_other = m_client.makeWindow({100, 300, 300, 200});
        show(m_other);
        QTest::qWait(100); // until the window manager has placed the window
        give(m_other);
        QTRY_COMPARE(m_focus.current(), m_other);
    }

    void cleanup() {
        xcb_destroy_window(m_client.get(), m_other);
        xcb_destroy_window(m_client.get(), m_panel);
        m_client.sync();
    }

    void focusOfAVisibleWindowIsNotTaken() {
        const xcb_window_t inner = xcb_generate_id(m_client.get());
        xcb_create_window(m_client.get(), XCB_COPY_FROM_PARENT, inner, m_other, -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        show(inner);
        m_focus.take(m_panel);
        QCOMPARE(m_focus.current(), m_panel);
        give(inner);
        m_focus.retakeFromNobody(m_panel);
        QCOMPARE(m_focus.current(), inner);
    }

    void takingTheFocusCancelsAPendingActivation() {
        const xcb_window_t late = m_client.makeWindow({100, 600, 100, 50}, XClient::Managed::No);
        m_focus.activate(late);
        QTest::qWait(250); // the window manager does not know this window
        m_focus.take(m_panel);
        QCOMPARE(m_focus.current(), m_panel);
        show(late);
        QTest::qWait(200);
        QCOMPARE(m_focus.current(), m_panel);
        xcb_destroy_window(m_client.get(), late);
    }

private:
    void show(xcb_window_t window) const {
        xcb_map_window(m_client.get(), window);
        m_client.sync();
    }

    void give(xcb_window_t window) const {
        xcb_set_input_focus(m_client.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        m_client.sync();
    }

    XClient m_client;
    XcbConnection m_connection;
    KeyboardFocus m_focus{m_connection};
    xcb_window_t m_panel = XCB_WINDOW_NONE;
    xcb_window_t m_other = XCB_WINDOW_NONE;
};

QTEST_MAIN(KeyboardFocusTest)
#include "KeyboardFocusTest.moc"

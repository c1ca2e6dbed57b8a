#include "X11PanelHost.h"
#include "X11HotKeys.h"
#include "XClient.h"

#include <QPainter>
#include <QRasterWindow>
#include <QRegion>
#include <QSignalSpy>
#include <QTest>
#include <xcb/shape.h>

#include <memory>

using namespace perchly;

namespace {

constexpr quint8 aKey = 38;
constexpr quint8 spaceKey = 65;
const ScreenRect pillFrame{495, 766, 290, 34};
const QMarginsF pillMargins{40, 0, 40, 40};
const QRect pillInWindow{40, 0, 290, 34};
constexpr QPoint insidePill{640, 15};
constexpr QPoint inMargin{470, 20};

class Panel : public QRasterWindow {
public:
    QList<int> typed;
    int clicks = 0;

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
        painter.fillRect(pillInWindow, Qt::darkCyan);
    }
    void keyPressEvent(QKeyEvent *event) override { typed.append(event->key()); }
    void mousePressEvent(QMouseEvent *) override { ++clicks; }
};

} // namespace

class X11PanelHostTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void showingAndClickingLeavesTheKeyboardAlone();
    void theKeyboardIsTakenAndGivenBack();
    void aHotKeyTakesTheKeyboardWhileItIsHeld();
    void theKeyboardIsNotGivenBackOnceItWentElsewhere();
    void theKeyboardGoesSomewhereWhenItsOwnerIsGone();
    void clicksInTheMarginFallThrough();
    void aCompositorComesAndGoes();
    void staysAboveAFullScreenWindow();
    void leavesScreenLocksAndMenusAbove_data();
    void leavesScreenLocksAndMenusAbove();
    void doesNotFightForThePlaceAbove();
    void anOrdinaryWindowIsActivated();

private:
    xcb_window_t panelId() const { return static_cast<xcb_window_t>(m_panel->winId()); }
    // The first rectangle in which the panel takes the pointer.
    QRect pointerArea() const {
        const XcbPointer<xcb_shape_get_rectangles_reply_t> shape(xcb_shape_get_rectangles_reply(
            m_client->get(),
            xcb_shape_get_rectangles(m_client->get(), panelId(), XCB_SHAPE_SK_INPUT), nullptr));
        if (!shape || xcb_shape_get_rectangles_rectangles_length(shape.get()) == 0)
            return {};
        const xcb_rectangle_t *first = xcb_shape_get_rectangles_rectangles(shape.get());
        return {first->x, first->y, first->width, first->height};
    }
    // A window manager gives a new window the focus, but not always; and it acts on a request in
    // its own time, which must not come after what the test does next.
    xcb_window_t showOther(const QRect &area) {
        const xcb_window_t window = m_client->makeWindow(area);
        const auto hasFocus = [&] { return m_client->focusedWindow() == window; };
        m_client->map(window);
        if (!m_client->hasWindowManager() || !QTest::qWaitFor(hasFocus, 1000))
            m_client->focus(window);
        if (!QTest::qWaitFor(hasFocus))
            qWarning("The other window did not get the focus.");
        QTest::qWait(100);
        return window;
    }

    std::unique_ptr<XClient> m_client;
    std::unique_ptr<Panel> m_panel;
    std::unique_ptr<X11PanelHost> m_host;
};

void X11PanelHostTest::init() {
    m_client = std::make_unique<XClient>();
    m_client->movePointer({900, 700});
    m_panel = std::make_unique<Panel>();
    m_host = std::make_unique<X11PanelHost>();
    m_host->attach(m_panel.get());
    m_host->place(pillFrame, pillMargins);
    m_host->setShape(pillInWindow);
}

void X11PanelHostTest::cleanup() {
    m_host.reset();
    m_panel.reset();
    m_client.reset();
    QTest::qWait(50);
}

void X11PanelHostTest::showingAndClickingLeavesTheKeyboardAlone() {
    const xcb_window_t other = showOther({100, 200, 300, 300});
    m_host->orderFront();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
    QCOMPARE(m_client->areaOf(panelId()), QRect(455, 0, 370, 74));

    m_client->click(insidePill);
    QTRY_COMPARE(m_panel->clicks, 1);
    QTest::qWait(100);
    QCOMPARE(m_client->focusedWindow(), other);
    QVERIFY(!m_host->hasKeyboard());

    m_host->place({426, 281, 660, 519}, pillMargins);
    QTRY_COMPARE(m_client->areaOf(panelId()), QRect(386, 0, 740, 559));
}

void X11PanelHostTest::theKeyboardIsTakenAndGivenBack() {
    const xcb_window_t other = showOther({100, 200, 300, 300});
    m_host->orderFront();
    // Before the server has shown the panel.
    m_host->takeKeyboard();
    QTRY_VERIFY(m_host->hasKeyboard());
    m_host->takeKeyboard();
    QTRY_COMPARE(QGuiApplication::focusWindow(), m_panel.get());
    m_client->typeKey(aKey);
    QTRY_COMPARE(m_panel->typed, QList<int>{Qt::Key_A});
    QCOMPARE(m_client->countEvents(XCB_KEY_PRESS, other), 0);

    m_host->giveKeyboardBack();
    QTRY_COMPARE(m_client->focusedWindow(), other);
    QVERIFY(!m_host->hasKeyboard());
    m_client->typeKey(aKey);
    QTRY_COMPARE(m_client->countEvents(XCB_KEY_PRESS, other), 1);
    QCOMPARE(m_panel->typed.size(), 1);

    m_host->takeKeyboard();
    QTRY_VERIFY(m_host->hasKeyboard());
    m_host->giveKeyboardBack();
    QTRY_COMPARE(m_client->focusedWindow(), other);
    QTest::qWait(250);
    QCOMPARE(m_client->focusedWindow(), other);
}

void X11PanelHostTest::aHotKeyTakesTheKeyboardWhileItIsHeld() {
    const xcb_window_t other = showOther({100, 200, 300, 300});
    X11HotKeys keys;
    QVERIFY(keys.registerChord(1, {Qt::Key_Space, Modifier::Control | Modifier::Option}));
    connect(&keys, &HotKeys::pressed, this, [this] {
        if (m_host->hasKeyboard()) {
            m_host->giveKeyboardBack();
        } else {
            m_host->orderFront();
            m_host->takeKeyboard();
        }
    });
    m_client->pressChord(spaceKey);
    QTRY_VERIFY(m_host->hasKeyboard());
    m_client->releaseChord(spaceKey);
    QTRY_COMPARE(QGuiApplication::focusWindow(), m_panel.get());
    m_panel->typed.clear();
    m_client->typeKey(aKey);
    QTRY_COMPARE(m_panel->typed, QList<int>{Qt::Key_A});

    m_client->typeChord(spaceKey);
    QTRY_COMPARE(m_client->focusedWindow(), other);
    QTRY_VERIFY(!m_host->hasKeyboard());
}

void X11PanelHostTest::theKeyboardIsNotGivenBackOnceItWentElsewhere() {
    showOther({100, 200, 300, 300});
    const xcb_window_t second = showOther({500, 200, 300, 300});
    const xcb_window_t first = showOther({100, 500, 300, 200});
    m_host->orderFront();
    m_host->takeKeyboard();
    QTRY_VERIFY(m_host->hasKeyboard());
    m_client->focus(second);
    QTRY_COMPARE(m_client->focusedWindow(), second);
    m_host->giveKeyboardBack();
    QTest::qWait(300);
    QCOMPARE(m_client->focusedWindow(), second);
    QVERIFY(m_client->isViewable(first));
}

void X11PanelHostTest::theKeyboardGoesSomewhereWhenItsOwnerIsGone() {
    const xcb_window_t other = showOther({100, 200, 300, 300});
    m_host->orderFront();
    m_host->takeKeyboard();
    QTRY_VERIFY(m_host->hasKeyboard());
    m_client->destroy(other);
    QTest::qWait(50);
    m_host->giveKeyboardBack();
    QTRY_VERIFY(!m_host->hasKeyboard());
    QVERIFY(m_client->focusedWindow() != XCB_WINDOW_NONE);
}

void X11PanelHostTest::clicksInTheMarginFallThrough() {
    const xcb_window_t below = m_client->makeWindow({400, 0, 500, 200}, XClient::Managed::No);
    m_client->map(below);
    m_host->orderFront();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
    QTRY_VERIFY(m_client->isAbove(panelId(), below));
    QTRY_COMPARE(pointerArea(), pillInWindow);

    m_client->click(inMargin);
    QTRY_COMPARE(m_client->countEvents(XCB_BUTTON_PRESS, below), 1);
    m_client->click(insidePill);
    QTRY_COMPARE(m_panel->clicks, 1);
    QCOMPARE(m_client->countEvents(XCB_BUTTON_PRESS, below), 1);

    m_host->setShape(QRect(0, 0, 370, 74));
    QTRY_COMPARE(pointerArea(), QRect(0, 0, 370, 74));
    m_client->click(inMargin);
    QTRY_COMPARE(m_panel->clicks, 2);
    m_client->destroy(below);
}

void X11PanelHostTest::aCompositorComesAndGoes() {
    const QSignalSpy changed(m_host.get(), &PanelHost::compositedChanged);
    m_host->orderFront();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
    const auto paintedArea = [this] {
        const XcbPointer<xcb_shape_query_extents_reply_t> extents(xcb_shape_query_extents_reply(
            m_client->get(), xcb_shape_query_extents(m_client->get(), panelId()), nullptr));
        return QRect(extents->bounding_shape_extents_x, extents->bounding_shape_extents_y,
                     extents->bounding_shape_extents_width, extents->bounding_shape_extents_height);
    };
    QVERIFY(!m_host->isComposited());
    QTRY_COMPARE(paintedArea(), pillInWindow);

    auto compositor = std::make_unique<XClient>();
    const xcb_window_t owner = compositor->makeWindow({-10, -10, 1, 1}, XClient::Managed::No);
    xcb_set_selection_owner(compositor->get(), owner, compositor->atom("_NET_WM_CM_S0"),
                            XCB_CURRENT_TIME);
    compositor->sync();
    QTRY_VERIFY(m_host->isComposited());
    QCOMPARE(changed.count(), 1);
    QTRY_COMPARE(paintedArea(), QRect(0, 0, 370, 74));
    QVERIFY(X11PanelHost().isComposited());

    compositor.reset();
    QTRY_VERIFY(!m_host->isComposited());
    QCOMPARE(changed.count(), 2);
    QTRY_COMPARE(paintedArea(), pillInWindow);
}

void X11PanelHostTest::staysAboveAFullScreenWindow() {
    m_host->orderFront();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
    const xcb_window_t fullScreen = m_client->makeWindow({0, 0, 1280, 800});
    m_client->setAtoms(fullScreen, "_NET_WM_STATE", {"_NET_WM_STATE_FULLSCREEN"});
    m_client->map(fullScreen);
    QTRY_VERIFY(m_client->isViewable(fullScreen));
    m_client->focus(fullScreen);
    m_client->raise(fullScreen);
    QTRY_COMPARE(m_client->areaOf(fullScreen), QRect(0, 0, 1280, 800));
    QTRY_VERIFY(m_client->isAbove(panelId(), fullScreen));
    m_client->click(insidePill);
    QTRY_COMPARE(m_panel->clicks, 1);
}

void X11PanelHostTest::leavesScreenLocksAndMenusAbove_data() {
    QTest::addColumn<QRect>("area");
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("a screen lock")
        << QRect(0, 0, 1280, 800) << QByteArray("_NET_WM_WINDOW_TYPE_NORMAL");
    QTest::newRow("another program's menu")
        << QRect(600, 0, 120, 300) << QByteArray("_NET_WM_WINDOW_TYPE_POPUP_MENU");
}

void X11PanelHostTest::leavesScreenLocksAndMenusAbove() {
    QFETCH(QRect, area);
    QFETCH(QByteArray, type);
    m_host->orderFront();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
    const xcb_window_t upper = m_client->makeWindow(area, XClient::Managed::No);
    m_client->setAtoms(upper, "_NET_WM_WINDOW_TYPE", {type});
    m_client->map(upper);
    QTest::qWait(300);
    QVERIFY(m_client->isAbove(upper, panelId()));
    m_client->destroy(upper);
}

void X11PanelHostTest::doesNotFightForThePlaceAbove() {
    m_host->orderFront();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
    const xcb_window_t rival = m_client->makeWindow({600, 0, 120, 20}, XClient::Managed::No);
    m_client->map(rival);
    QTRY_VERIFY(m_client->isAbove(panelId(), rival));

    // A rival that raises itself whenever it is covered.
    int raises = 0;
    m_client->raise(rival);
    for (int i = 0; i < 150; ++i) {
        QTest::qWait(10);
        if (m_client->isAbove(panelId(), rival)) {
            m_client->raise(rival);
            ++raises;
        }
    }
    QVERIFY2(raises <= 4, qPrintable(QString::number(raises)));
    m_client->destroy(rival);
}

void X11PanelHostTest::anOrdinaryWindowIsActivated() {
    const xcb_window_t other = showOther({0, 0, 1000, 600});
    QRasterWindow window;
    window.setGeometry(200, 200, 300, 200);
    m_host->activate(&window);
    const auto id = static_cast<xcb_window_t>(window.winId());
    QTRY_COMPARE(m_client->focusedWindow(), id);
    QTRY_VERIFY(m_client->isAbove(id, other));
    QTRY_COMPARE(QGuiApplication::focusWindow(), &window);

    m_client->focus(other);
    m_client->raise(other);
    QTRY_COMPARE(m_client->focusedWindow(), other);
    m_host->activate(&window);
    QTRY_COMPARE(m_client->focusedWindow(), id);
    QTRY_VERIFY(m_client->isAbove(id, other));

    // From the keyboard-opened panel.
    m_host->orderFront();
    m_host->takeKeyboard();
    QTRY_VERIFY(m_host->hasKeyboard());
    m_host->activate(&window);
    QTRY_COMPARE(m_client->focusedWindow(), id);
    m_host->giveKeyboardBack();
    QTest::qWait(250);
    QCOMPARE(m_client->focusedWindow(), id);

    if (m_client->hasWindowManager()) {
        window.showMinimized();
        QTRY_VERIFY(!m_client->isViewable(id));
        m_host->activate(&window);
        QTRY_VERIFY(m_client->isViewable(id));
        QTRY_COMPARE(m_client->focusedWindow(), id);
    }
}

QTEST_MAIN(X11PanelHostTest)
#include "X11PanelHostTest.moc"

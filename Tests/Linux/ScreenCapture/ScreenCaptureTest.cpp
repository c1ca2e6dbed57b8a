#include "ProcessScreenCapture.h"
#include "XClient.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace perchly;

namespace {

constexpr QSize screenSize(1280, 800);

QRgb colourAt(int x, int y) {
    return qRgb(x * 7 % 256, y * 5 % 256, (x + y) % 256);
}

/// Shows a window over the whole screen with a known colour in every pixel.
void showPattern(const XClient &other) {
    const xcb_window_t window = other.makeWindow(QRect({}, screenSize), XClient::Managed::No);
    const xcb_gcontext_t context = xcb_generate_id(other.get());
    xcb_create_gc(other.get(), context, window, 0, nullptr);
    xcb_map_window(other.get(), window);
    QImage pattern(screenSize, QImage::Format_RGB32);
    for (int y = 0; y < pattern.height(); ++y) {
        for (int x = 0; x < pattern.width(); ++x) {
            pattern.setPixel(x, y, colourAt(x, y));
        }
    }
    xcb_put_image(other.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, context, quint16(pattern.width()),
                  quint16(pattern.height()), 0, 0, 0, 24, quint32(pattern.sizeInBytes()),
                  pattern.constBits());
    other.sync();
}

} // namespace

class ScreenCaptureTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        for (const auto &monitor : {QStringLiteral("left 640/300x800/200+0+0 screen"),
                                    QStringLiteral("right 640/300x800/200+640+0 none")}) {
            const QString arguments = QStringLiteral("--setmonitor ") + monitor;
            QCOMPARE(QProcess::execute(QStringLiteral("xrandr"), arguments.split(u' ')), 0);
        }
    }

    void init() {
        m_status.reset();
        m_user.movePointer({5, 5});
        showPattern(m_user);
    }

    void captureAcrossDisplaysIsPixelExact() {
        const QPoint from(901, 700);
        const QPoint to(333, 77);
        qputenv("QT_SCALE_FACTOR", "1.5");
        start();
        QTRY_VERIFY(overlayHoldsKeyboard());
        drag({20, 20}, {20, 20}); // selects nothing
        drag(from, to);
        m_user.movePointer({640, 400}); // after the release, so it is ignored
        QTRY_COMPARE(m_status.value_or(-9), 0);
        const QImage picture(m_path);
        QCOMPARE(picture.size(), QSize(569, 624));
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                QCOMPARE(picture.pixel(x, y), colourAt(to.x() + x, to.y() + y));
            }
        }
        QVERIFY(!(QFile::permissions(m_path) & (QFile::ReadGroup | QFile::ReadOther)));
    }

    void waitsBrieflyForAGrabbedKeyboard() {
        QVERIFY(grabKeyboard());
        start();
        QTRY_COMPARE_WITH_TIMEOUT(m_status.value_or(0), 1, 4000);
        m_status.reset();
        start();
        QTest::qWait(500);
        xcb_ungrab_keyboard(m_user.get(), XCB_CURRENT_TIME);
        m_user.sync();
        QTRY_VERIFY(overlayHoldsKeyboard());
        m_run.reset(); // destroying the task ends the companion
        QTRY_VERIFY(!overlayHoldsKeyboard());
        QVERIFY(!m_status);
    }

    void givesUpWhenTheScreenSaverStarts() {
        start();
        QTRY_VERIFY(overlayHoldsKeyboard());
        xcb_force_screen_saver(m_user.get(), XCB_SCREEN_SAVER_ACTIVE);
        m_user.sync();
        QTRY_COMPARE(m_status.value_or(-1), 0);
        xcb_force_screen_saver(m_user.get(), XCB_SCREEN_SAVER_RESET);
    }

private:
    void start() {
        m_run = m_capture.captureRegion(m_path, [this](int status) { m_status = status; });
    }

    void drag(QPoint from, QPoint to) const {
        m_user.movePointer(from);
        m_user.pressButton();
        m_user.movePointer((from + to) / 2);
        m_user.movePointer(to);
        m_user.releaseButton();
    }

    bool grabKeyboard() const {
        const auto cookie = xcb_grab_keyboard(m_user.get(), 0, m_user.root(), XCB_CURRENT_TIME,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        const XcbPointer<xcb_grab_keyboard_reply_t> reply(
            xcb_grab_keyboard_reply(m_user.get(), cookie, nullptr));
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    }

    bool overlayHoldsKeyboard() const {
        const bool isFree = grabKeyboard();
        xcb_ungrab_keyboard(m_user.get(), XCB_CURRENT_TIME);
        m_user.sync();
        return !isFree;
    }

    XClient m_user;
    ProcessScreenCapture m_capture{QStringLiteral(CAPTURE_COMPANION)};
    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("capture.png"));
    std::optional<int> m_status;
    Task m_run;
};

QTEST_GUILESS_MAIN(ScreenCaptureTest)
#include "ScreenCaptureTest.moc"

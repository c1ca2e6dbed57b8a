#include "ProcessScreenCapture.h"
#include "XClient.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <xcb/xfixes.h>

using namespace perchly;

namespace {

constexpr QSize screenSize(1280, 800);
constexpr quint8 escapeKey = 9;

QRgb colourAt(int x, int y) {
    return qRgb(x * 7 % 256, y * 5 % 256, (x + y) % 256);
}

/// A window over the whole screen in which every pixel is known.
void drawPattern(const XClient &other, xcb_window_t window) {
    QImage pattern(screenSize, QImage::Format_RGB32);
    for (int y = 0; y < pattern.height(); ++y) {
        for (int x = 0; x < pattern.width(); ++x) {
            pattern.setPixel(x, y, colourAt(x, y));
        }
    }
    const xcb_gcontext_t context = xcb_generate_id(other.get());
    xcb_create_gc(other.get(), context, window, 0, nullptr);
    for (int y = 0; y < pattern.height(); ++y) { // a request has a largest size
        xcb_put_image(other.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, context,
                      quint16(pattern.width()), 1, 0, qint16(y), 0, 24,
                      quint32(pattern.bytesPerLine()), pattern.constScanLine(y));
    }
    xcb_free_gc(other.get(), context);
    other.sync();
}

} // namespace

class ScreenCaptureTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        const QString halves[] = {QStringLiteral("640/300x800/200+0+0"),
                                  QStringLiteral("640/300x800/200+640+0")};
        QCOMPARE(QProcess::execute(QStringLiteral("xrandr"),
                                   {QStringLiteral("--setmonitor"), QStringLiteral("left"),
                                    halves[0], QStringLiteral("screen")}),
                 0);
        QCOMPARE(QProcess::execute(QStringLiteral("xrandr"),
                                   {QStringLiteral("--setmonitor"), QStringLiteral("right"),
                                    halves[1], QStringLiteral("none")}),
                 0);
        m_pattern = m_person.makeWindow(QRect(QPoint(), screenSize), XClient::Managed::No);
        xcb_map_window(m_person.get(), m_pattern);
    }

    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath(QStringLiteral("capture.png"));
        m_status.reset();
        m_person.movePointer({5, 5});
        drawPattern(m_person, m_pattern); // the server forgets what was covered
    }
    void cleanup() { qunsetenv("QT_SCALE_FACTOR"); }

    void keepsThePixelsOfTheRectangle_data() {
        QTest::addColumn<QByteArray>("scale");
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<QPoint>("to");
        const auto row = [](const char *name, const char *scale, QPoint from, QPoint to) {
            QTest::newRow(name) << QByteArray(scale) << from << to;
        };
        row("on one display", "1", {100, 100}, {299, 180});
        row("across two displays", "1", {500, 300}, {900, 500});
        row("across two displays at scale 2", "2", {500, 300}, {900, 500});
        row("at a broken scale, upwards and to the left", "1.5", {901, 700}, {333, 77});
        row("everything", "2", {0, 0}, {1279, 799});
    }

    void keepsThePixelsOfTheRectangle() {
        QFETCH(QByteArray, scale);
        QFETCH(QPoint, from);
        QFETCH(QPoint, to);
        qputenv("QT_SCALE_FACTOR", scale);
        start();
        QVERIFY(overlayIsThere());
        m_person.click({20, 20}); // chooses nothing
        m_person.movePointer(from);
        m_person.pressButton();
        m_person.movePointer((from + to) / 2);
        m_person.movePointer(to);
        m_person.releaseButton();
        m_person.movePointer({640, 400}); // which comes too late to count
        QTRY_COMPARE(m_status.value_or(-9), 0);
        const QRect chosen(QPoint(qMin(from.x(), to.x()), qMin(from.y(), to.y())),
                           QPoint(qMax(from.x(), to.x()), qMax(from.y(), to.y())));
        const QImage picture(m_path);
        QCOMPARE(picture.size(), chosen.size());
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                QCOMPARE(picture.pixel(x, y), colourAt(chosen.x() + x, chosen.y() + y));
            }
        }
        QCOMPARE(QFile::permissions(m_path) & ~(QFile::ReadUser | QFile::WriteUser),
                 QFile::ReadOwner | QFile::WriteOwner);
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
    }

    void escapeLeavesNothing() {
        const QByteArray arrow = cursor();
        start();
        QVERIFY(overlayIsThere());
        QTRY_VERIFY(cursor() != arrow); // a cross
        m_person.pressButton();
        m_person.movePointer({300, 300});
        m_person.typeKey(escapeKey);
        m_person.releaseButton();
        QTRY_COMPARE(m_status.value_or(0), 1);
        QTRY_COMPARE(cursor(), arrow);
        QVERIFY(!QFile::exists(m_path));
    }

    void aFileThatCannotBeWrittenIsAFailure() {
        m_path = QStringLiteral("/nowhere/capture.png");
        start();
        QVERIFY(overlayIsThere());
        m_person.movePointer({100, 100});
        m_person.pressButton();
        m_person.movePointer({200, 200});
        m_person.releaseButton();
        QTRY_COMPARE(m_status.value_or(0), 1);
    }

    void anotherProgramThatHoldsThePointerIsWaitedForBriefly() {
        const auto grab =
            xcb_grab_pointer(m_person.get(), 0, m_person.root(), 0, XCB_GRAB_MODE_ASYNC,
                             XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
        free(xcb_grab_pointer_reply(m_person.get(), grab, nullptr));
        start();
        QTRY_COMPARE_WITH_TIMEOUT(m_status.value_or(0), 1, 3000);
        m_status.reset();
        start();
        QTest::qWait(300);
        QVERIFY(!overlayIsThere(0));
        xcb_ungrab_pointer(m_person.get(), XCB_CURRENT_TIME);
        m_person.sync();
        QVERIFY(overlayIsThere());
        m_run.reset(); // the overlay goes with the one who wanted it
        QTRY_VERIFY(!overlayIsThere(0));
        QVERIFY(!m_status);
    }

private:
    void start() {
        m_run = m_capture.captureRegion(m_path, [this](int status) { m_status = status; });
    }

    /// What the pointer looks like.
    QByteArray cursor() const {
        free(xcb_xfixes_query_version_reply(
            m_person.get(), xcb_xfixes_query_version(m_person.get(), 2, 0), nullptr));
        const XcbPointer<xcb_xfixes_get_cursor_image_reply_t> image(
            xcb_xfixes_get_cursor_image_reply(
                m_person.get(), xcb_xfixes_get_cursor_image(m_person.get()), nullptr));
        return {
            reinterpret_cast<const char *>(xcb_xfixes_get_cursor_image_cursor_image(image.get())),
            xcb_xfixes_get_cursor_image_cursor_image_length(image.get()) * 4};
    }

    /// Whether something lies over the pattern.
    bool overlayIsThere(int patience = 5000) const {
        const auto isCovered = [this] {
            const auto cookie = xcb_query_tree(m_person.get(), m_person.root());
            const XcbPointer<xcb_query_tree_reply_t> tree(
                xcb_query_tree_reply(m_person.get(), cookie, nullptr));
            const xcb_window_t *windows = xcb_query_tree_children(tree.get());
            const int count = xcb_query_tree_children_length(tree.get());
            for (int index = count - 1; index >= 0 && windows[index] != m_pattern; --index) {
                const XcbPointer<xcb_get_window_attributes_reply_t> attributes(
                    xcb_get_window_attributes_reply(
                        m_person.get(), xcb_get_window_attributes(m_person.get(), windows[index]),
                        nullptr));
                if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
                    attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT) {
                    return true;
                }
            }
            return false;
        };
        return QTest::qWaitFor(isCovered, patience);
    }

    XClient m_person;
    xcb_window_t m_pattern = XCB_WINDOW_NONE;
    ProcessScreenCapture m_capture{QStringLiteral(CAPTURE_COMPANION)};
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    std::optional<int> m_status;
    Task m_run;
};

QTEST_GUILESS_MAIN(ScreenCaptureTest)
#include "ScreenCaptureTest.moc"

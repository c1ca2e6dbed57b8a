#include "PdfView.h"

#include <QPainter>
#include <QPdfWriter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>

using namespace perchly;

namespace {

/// Pages that take a while to draw, if they have circles under their colour.
void writePdf(const QString &path, int pages, const QSizeF &points, QColor colour, int circles) {
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(points, QPageSize::Point));
    writer.setPageMargins({});
    QPainter painter(&writer);
    for (int page = 0; page < pages; ++page) {
        if (page > 0) {
            writer.newPage();
        }
        for (int circle = 0; circle < circles; ++circle) {
            painter.drawEllipse(painter.viewport().adjusted(circle, circle, -circle, -circle));
        }
        painter.fillRect(painter.viewport(), colour);
    }
}

} // namespace

class PdfViewTest : public QObject {
    Q_OBJECT
    QTemporaryDir m_folder;
    const QString m_red = m_folder.filePath(QStringLiteral("red.pdf"));
    const QString m_blue = m_folder.filePath(QStringLiteral("blue.pdf"));
    const QString m_none = m_folder.filePath(QStringLiteral("none.pdf"));

private Q_SLOTS:
    void initTestCase() {
        writePdf(m_red, 300, {200, 100}, Qt::red, 200);
        writePdf(m_blue, 1, {200, 200}, Qt::blue, 0);
    }

    void onlyTheDocumentThatIsWantedAnswers() {
        PdfView view;
        const QSignalSpy opened(&view, &PdfView::opened);
        const QSignalSpy failed(&view, &PdfView::failed);
        view.open(1, m_red);
        view.open(2, m_none);
        view.open(3, m_red);
        view.forget();
        view.open(4, m_none);
        view.open(5, m_blue);
        QTRY_COMPARE(opened.size(), 1);
        view.open(6, m_none);
        QTRY_COMPARE(failed.size(), 1);
        QCOMPARE(opened, (QList<QVariantList>{{5}}));
        QCOMPARE(failed, (QList<QVariantList>{{6}}));
    }

    void whatIsSeenIsDrawn() {
        PdfView view;
        view.resize(400, 600);
        view.show();
        const auto middle = [&] { return view.grab().toImage().pixelColor(200, 100); };
        view.open(1, m_red);
        QTRY_COMPARE(middle(), QColor(Qt::red));
        QScrollBar &bar = *view.verticalScrollBar();
        for (int step = 0; step <= 300; ++step) {
            bar.setValue(bar.maximum() * step / 300);
            view.viewport()->repaint();
        }
        QTRY_COMPARE(middle(), QColor(Qt::red));
        // Another width leaves the place where it is: the middle of the same page.
        const auto middleOfPage = [&view](int page) {
            const int height = (view.viewport()->width() - 28) / 2;
            return 14 + page * (height + 14) + height / 2;
        };
        bar.setValue(middleOfPage(50));
        view.resize(800, 600);
        QTRY_VERIFY(view.viewport()->width() > 700);
        QVERIFY(std::abs(bar.value() - middleOfPage(50)) <= 2);
        view.resize(400, 600);
        view.open(2, m_blue);
        QVERIFY(middle() != QColor(Qt::red));
        QTRY_COMPARE(middle(), QColor(Qt::blue));
    }

    void pagesInViewAreKeptAndNotDrawnAgain() {
        const QSize pixels(10, 10);
        QImage picture(pixels, QImage::Format_RGB32);
        PagePictures pictures(3 * picture.sizeInBytes());
        for (int page = 0; page < 8; ++page) {
            pictures.insert(page, pixels, picture);
        }
        pictures.insert(8, pixels, {}); // could not be drawn
        const auto kept = [&] {
            QList<int> pages;
            for (int page = 0; page < 9; ++page) {
                if (pictures.isDrawn(page, pixels)) {
                    pages.append(page);
                }
            }
            return pages;
        };
        pictures.trim({3, 8}); // more than there is room for
        QCOMPARE(kept(), (QList<int>{3, 4, 5, 6, 7, 8}));
        QVERIFY(pictures.picture(8).isNull());
        QVERIFY(!pictures.isDrawn(3, {20, 20}));
        pictures.trim({4, 5});
        QCOMPARE(kept(), (QList<int>{3, 4, 5}));
        pictures.insert(4, {20, 20}, picture.scaled(20, 20));
        pictures.trim({0, 0});
        QCOMPARE(kept(), QList<int>{3});
        QVERIFY(!pictures.isDrawn(4, {20, 20}));
    }
};

QTEST_MAIN(PdfViewTest)
#include "PdfViewTest.moc"

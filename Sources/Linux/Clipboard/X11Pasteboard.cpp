#include "X11Pasteboard.h"

#include "ClipboardReader.h"
#include "OwnCopy.h"
#include "QtConnection.h"

#include <QClipboard>
#include <QGuiApplication>

namespace perchly {

namespace {

/// Receives the content, unless destroyed first.
struct PasteboardReading : QObject, ScheduledTask {};

} // namespace

X11Pasteboard::X11Pasteboard(QObject *parent)
    : Pasteboard(parent)
    , m_reader(new ClipboardReader) {
    m_reader->moveToThread(&m_thread);
    connect(&m_thread, &QThread::started, m_reader, &ClipboardReader::connectToServer);
    connect(&m_thread, &QThread::finished, m_reader, &QObject::deleteLater);
    connect(m_reader, &ClipboardReader::copied, this, &X11Pasteboard::handleCopy);
    m_thread.start();
}

X11Pasteboard::~X11Pasteboard() {
    m_reader->stop();
    m_thread.quit();
    m_thread.wait();
}

Task X11Pasteboard::read(const PasteboardRequest &request, Completion completion) {
    auto reading = std::make_unique<PasteboardReading>();
    const quint64 number = ++m_lastReading;
    connect(m_reader, &ClipboardReader::readingEnded, reading.get(),
            [number, completion = std::move(completion)](quint64 ended, const auto &content) {
                if (ended == number) {
                    completion(content);
                }
            });
    QMetaObject::invokeMethod(m_reader, [reader = m_reader, number, request, copies = m_copies] {
        reader->read(number, request, copies);
    });
    return reading;
}

void X11Pasteboard::write(const QString &text) {
    ++m_count;
    offer(new OwnCopy(text));
}

void X11Pasteboard::writeItems(const QList<QUrl> &urls) {
    ++m_count;
    offer(new OwnCopy(urls));
}

void X11Pasteboard::writeImage(const QByteArray &encoded) {
    const auto finish = [this, count = ++m_count](const CopiedImage &image) {
        if (count == m_count) { // if nothing else was copied meanwhile
            offer(image.png.isEmpty() ? nullptr : new OwnCopy(image));
        }
    };
    m_decoder.run([encoded] { return copiedImage(encoded); }, finish);
}

/// Null empties the clipboard.
void X11Pasteboard::offer(OwnCopy *copy) {
    m_offered = copy;
    QGuiApplication::clipboard()->setMimeData(copy);
}

void X11Pasteboard::handleCopy(quint64 copies, quint32 owner) {
    m_copies = copies;
    if (m_offered) {
        const xcb_setup_t *setup = xcb_get_setup(qtConnection());
        if ((owner & ~setup->resource_id_mask) == setup->resource_id_base) {
            return; // the write has counted it
        }
    }
    ++m_count;
    Q_EMIT changed();
}

} // namespace perchly

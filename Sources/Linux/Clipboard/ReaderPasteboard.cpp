#include "ReaderPasteboard.h"

#include "OwnCopy.h"

namespace perchly {

namespace {

/// Receives the content, unless destroyed first.
struct PasteboardReading : QObject, ScheduledTask {};

} // namespace

ReaderPasteboard::ReaderPasteboard(ClipboardReader::Connect connect, QObject *parent)
    : Pasteboard(parent)
    , m_reader(new ClipboardReader(std::move(connect))) {
    m_reader->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::started, m_reader, &ClipboardReader::connectToServer);
    QObject::connect(&m_thread, &QThread::finished, m_reader, &QObject::deleteLater);
    QObject::connect(m_reader, &ClipboardReader::copied, this, &ReaderPasteboard::handleCopy);
    m_thread.start();
}

ReaderPasteboard::~ReaderPasteboard() {
    m_reader->stop();
    m_thread.quit();
    m_thread.wait();
}

Task ReaderPasteboard::read(const PasteboardRequest &request, Completion completion) {
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

void ReaderPasteboard::withClient(const std::function<void(CopyClient &client)> &function) {
    QMetaObject::invokeMethod(m_reader,
                              [reader = m_reader, function] { reader->withClient(function); });
}

void ReaderPasteboard::write(const QString &text) {
    ++m_count;
    offer(new OwnCopy(text));
}

void ReaderPasteboard::writeItems(const QList<QUrl> &urls) {
    ++m_count;
    offer(new OwnCopy(urls));
}

void ReaderPasteboard::writeImage(const QByteArray &encoded) {
    const auto finish = [this, count = ++m_count](const CopiedImage &image) {
        if (count == m_count) { // if nothing else was copied meanwhile
            offer(image.png.isEmpty() ? nullptr : new OwnCopy(image));
        }
    };
    m_decoder.run([encoded] { return copiedImage(encoded); }, finish);
}

void ReaderPasteboard::handleCopy(quint64 copies, quint32 client) {
    m_copies = copies;
    if (!isOurs(client)) { // a write has been counted already
        ++m_count;
        Q_EMIT changed();
    }
}

} // namespace perchly

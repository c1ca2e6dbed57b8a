#include "X11Pasteboard.h"

#include "SelectionThread.h"

namespace perchly {

class X11Pasteboard::Reading : public ScheduledTask {
public:
    Reading(X11Pasteboard &pasteboard, quint64 number)
        : m_pasteboard(pasteboard)
        , m_number(number) {}
    ~Reading() override { m_pasteboard.cancel(m_number); }

private:
    X11Pasteboard &m_pasteboard;
    quint64 m_number;
};

X11Pasteboard::X11Pasteboard(QObject *parent)
    : Pasteboard(parent) {
    // What the thread tells waits in this object's queue, and goes when this object goes.
    SelectionLoop::Listener listener;
    listener.copied = [this](quint64 write) {
        QMetaObject::invokeMethod(
            this, [this, write] { handleCopy(write); }, Qt::QueuedConnection);
    };
    listener.read = [this](quint64 reading, const PasteboardContent &content) {
        QMetaObject::invokeMethod(
            this, [this, reading, content] { handleRead(reading, content); }, Qt::QueuedConnection);
    };
    m_thread = std::make_unique<SelectionThread>(std::move(listener));
}

X11Pasteboard::~X11Pasteboard() = default;

Task X11Pasteboard::read(const PasteboardRequest &request, Completion completion) {
    const quint64 number = ++m_lastReading;
    m_completions.emplace(number, std::move(completion));
    m_thread->read(number, request, m_copies);
    return std::make_unique<Reading>(*this, number);
}

void X11Pasteboard::write(const QString &text) {
    ++m_count;
    m_thread->write(text, ++m_writes);
}

void X11Pasteboard::writeImage(const QByteArray &encoded) {
    ++m_count;
    m_thread->writeImage(encoded, ++m_writes);
}

void X11Pasteboard::writeItems(const QList<QUrl> &urls) {
    ++m_count;
    m_thread->writeItems(urls, ++m_writes);
}

void X11Pasteboard::handleCopy(quint64 write) {
    ++m_copies;
    // A copy that was made before our last write is there no more.
    if (write == m_writes) {
        ++m_count;
        Q_EMIT changed();
    }
}

void X11Pasteboard::handleRead(quint64 reading, const PasteboardContent &content) {
    const auto found = m_completions.extract(reading);
    if (found) {
        found.mapped()(content);
    }
}

void X11Pasteboard::cancel(quint64 reading) {
    if (m_completions.erase(reading) > 0) {
        m_thread->cancel(reading);
    }
}

} // namespace perchly

#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSocketNotifier>
#include <QUrl>

namespace perchly {

/// What is to be shown, as the program asks for it.
struct PreviewRequest {
    QList<QUrl> items;
    qsizetype index = 0; ///< one of the items
    bool toggle = false;
};

/// Reads requests from standard input: one to a line, a JSON object with "items", "index" and
/// "toggle". Lines that are none are passed over.
class RequestReader : public QObject {
    Q_OBJECT
public:
    RequestReader();

Q_SIGNALS:
    void requested(const perchly::PreviewRequest &request);
    /// There will be no more: the program has ended.
    void ended();

private:
    void readSome();
    void handleLine(const QByteArray &line);

    QSocketNotifier m_notifier;
    QByteArray m_buffer;
};

} // namespace perchly

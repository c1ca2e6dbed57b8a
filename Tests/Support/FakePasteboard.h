#pragma once

#include "Pasteboard.h"
#include "PendingCalls.h"

namespace perchly {

/// A pasteboard whose readings end when the test says so.
class FakePasteboard : public Pasteboard {
public:
    /// What another program offers.
    struct Offer {
        QByteArray png = {};
        QString text = {};
        QList<QUrl> urls = {}; ///< which this program wrote
    };

    qint64 changeCount() const override { return m_count; }
    Task read(const PasteboardRequest &request, Completion completion) override {
        asked.push_back(request);
        return m_readings.add({std::move(completion), m_count});
    }
    void write(const QString &text) override { offer({.text = text}); }
    void writeImage(const QByteArray &encoded) override { offer({.png = encoded}); }
    void writeItems(const QList<QUrl> &urls) override {
        offer({.text = QUrl::toStringList(urls).join(u' '), .urls = urls});
    }

    /// Another program copies.
    void copy(const Offer &copied) {
        offer(copied);
        Q_EMIT changed();
    }

    /// Answers the first pending reading, which must exist, with the present content; an image goes
    /// before a text.
    void answer() {
        const auto reading = m_readings.take();
        const Offer content = reading->count == m_count ? offered : Offer();
        reading->completion(
            {.image = content.png, .text = content.png.isEmpty() ? content.text : QString()});
    }
    [[nodiscard]] qsizetype underWay() const { return qsizetype(m_readings.count()); }

    Offer offered;
    std::vector<PasteboardRequest> asked; ///< every reading there was, in order

private:
    struct Reading {
        Completion completion;
        qint64 count;
    };

    void offer(const Offer &content) {
        offered = content;
        ++m_count;
    }

    qint64 m_count = 7;
    PendingCalls<Reading> m_readings;
};

} // namespace perchly

#pragma once

#include "Pasteboard.h"
#include "PendingCalls.h"

namespace perchly {

/// A pasteboard whose readings the test answers.
class FakePasteboard : public Pasteboard {
public:
    /// The formats that a program offers.
    struct Offer {
        QByteArray png = {};
        QString text = {};
        QList<QUrl> urls = {}; ///< written by this program
    };

    qint64 changeCount() const override { return m_count; }
    Task read(const PasteboardRequest &request, Completion completion) override {
        asked.append(request);
        return m_readings.add(std::move(completion));
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

    /// Answers the oldest pending reading with the current content; false if nothing is pending.
    bool answer() {
        return m_readings.answer(PasteboardContent{.image = offered.png, .text = offered.text});
    }

    Offer offered;
    QList<PasteboardRequest> asked; ///< every reading, in order

private:
    void offer(const Offer &content) {
        offered = content;
        ++m_count;
    }

    qint64 m_count = 7;
    PendingCalls<Completion> m_readings;
};

} // namespace perchly

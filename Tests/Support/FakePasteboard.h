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
    Task read(const PasteboardRequest &request, Completion completion) override;
    void write(const QString &text) override;
    void writeImage(const QByteArray &encoded) override;
    void writeItems(const QList<QUrl> &urls) override;

    /// Another program copies.
    void copy(const Offer &offer);

    /// Answers the first pending reading, which must exist, with the present content; an image goes
    /// before a text.
    void answer();
    [[nodiscard]] qsizetype underWay() const { return qsizetype(m_readings.count()); }

    Offer offered;
    std::vector<PasteboardRequest> asked; ///< every reading there was, in order

private:
    struct Reading {
        Completion completion;
        qint64 count;
    };

    qint64 m_count = 7;
    PendingCalls<Reading> m_readings;
};

} // namespace perchly

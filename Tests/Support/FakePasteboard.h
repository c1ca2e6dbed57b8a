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

    /// The first reading under way ends with what is offered now, an image before a text, whatever
    /// was asked for. There must be one.
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

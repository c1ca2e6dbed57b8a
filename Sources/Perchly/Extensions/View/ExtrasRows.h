#pragma once

#include "KeyedRows.h"
#include "ShelfExtras.h"

#include <QHash>
#include <QPointer>
#include <QtQml/qqmlregistration.h>
#include <QUrl>

namespace perchly {

/// Rows that follow one of the extras store's lists. Empty until the store is given. The base
/// classes are written in full here for the sake of the QML tools.
class ExtrasRows : public perchly::KeyedRows {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(perchly::ShelfExtras *extras READ extras WRITE setExtras NOTIFY extrasChanged
                   REQUIRED FINAL)
public:
    using KeyedRows::KeyedRows;

    [[nodiscard]] ShelfExtras *extras() const { return m_extras; }
    void setExtras(ShelfExtras *extras);

Q_SIGNALS:
    void extrasChanged();

protected:
    using Announcement = void (ShelfExtras::*)();

    /// Makes the rows anew; called with a store only.
    virtual void refresh() = 0;
    /// What the store announces when the rows are no longer right.
    [[nodiscard]] virtual Announcement announcement() const = 0;

private:
    QPointer<ShelfExtras> m_extras;
};

/// The launch groups: "id", "name" and "contents", what is opened as one text.
class GroupRows : public perchly::ExtrasRows {
    Q_OBJECT
    QML_ELEMENT
public:
    using ExtrasRows::ExtrasRows;

protected:
    void refresh() override;
    [[nodiscard]] Announcement announcement() const override { return &ShelfExtras::groupsChanged; }
};

/// The pinned snippets: "id", "label", of which no more is given than can be shown, "isBlank" when
/// there is nothing to see in it, and "text".
class SnippetRows : public perchly::ExtrasRows {
    Q_OBJECT
    QML_ELEMENT
public:
    using ExtrasRows::ExtrasRows;

protected:
    void refresh() override;
    [[nodiscard]] Announcement announcement() const override {
        return &ShelfExtras::snippetsChanged;
    }
};

/// The meetings: "title", "start" in words, "status", whether it is "running", and "link", where to
/// join it.
class MeetingRows : public perchly::ExtrasRows {
    Q_OBJECT
    QML_ELEMENT
public:
    using ExtrasRows::ExtrasRows;

    /// Looks at the time again.
    Q_INVOKABLE void look();

protected:
    void refresh() override;
    [[nodiscard]] Announcement announcement() const override { return &ShelfExtras::eventsChanged; }

private:
    QHash<QString, QUrl> m_links; ///< looking for one takes a while
};

} // namespace perchly

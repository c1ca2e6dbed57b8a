#pragma once

#include "KeyedRows.h"
#include "Productivity.h"

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// Rows that follow one of the workspace store's lists. Empty until the store is given. The base
/// classes are written in full here for the sake of the QML tools.
class WorkspaceRows : public perchly::KeyedRows {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(
        perchly::Productivity *tools READ tools WRITE setTools NOTIFY toolsChanged REQUIRED FINAL)
public:
    using KeyedRows::KeyedRows;

    [[nodiscard]] Productivity *tools() const { return m_tools; }
    void setTools(Productivity *tools);

Q_SIGNALS:
    void toolsChanged();

protected:
    using Announcement = void (Productivity::*)();

    /// Makes the rows anew; called with a store only.
    virtual void refresh() = 0;
    /// What the store announces when the rows are no longer right.
    [[nodiscard]] virtual Announcement announcement() const = 0;

private:
    QPointer<Productivity> m_tools;
};

/// The held files and links: "url", "label", "isFile" and "isPicture", which is found out in the
/// background.
class HeldRows : public perchly::WorkspaceRows {
    Q_OBJECT
    QML_ELEMENT
public:
    using WorkspaceRows::WorkspaceRows;

    /// Looks again which files are pictures; until that is known, they stay what they were.
    Q_INVOKABLE void lookAgain();

protected:
    void refresh() override;
    [[nodiscard]] Announcement announcement() const override { return &Productivity::heldChanged; }

private:
    void look(const QUrl &url);
    void finishLook(const QUrl &url, bool isPicture);

    QHash<QUrl, bool> m_pictures; ///< false also for those that were not looked at yet
    QSet<QUrl> m_looking;
    bool m_isRefreshDue = false;
};

/// The clips that match a search: "id", "label", of which no more is given than can be shown,
/// "isBlank" when there is nothing to see in it, "isImage" and "text".
class ClipRows : public perchly::WorkspaceRows {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged FINAL)
public:
    using WorkspaceRows::WorkspaceRows;

    [[nodiscard]] QString search() const { return m_search; }
    void setSearch(const QString &search);

Q_SIGNALS:
    void searchChanged();

protected:
    void refresh() override;
    [[nodiscard]] Announcement announcement() const override { return &Productivity::clipsChanged; }

private:
    QString m_search;
};

/// The saved layouts: "id" and "name".
class LayoutRows : public perchly::WorkspaceRows {
    Q_OBJECT
    QML_ELEMENT
public:
    using WorkspaceRows::WorkspaceRows;

protected:
    void refresh() override;
    [[nodiscard]] Announcement announcement() const override {
        return &Productivity::layoutsChanged;
    }
};

/// The listed shortcuts: "name", and "label" to be shown.
class ShortcutRows : public perchly::WorkspaceRows {
    Q_OBJECT
    QML_ELEMENT
public:
    using WorkspaceRows::WorkspaceRows;

protected:
    void refresh() override;
    [[nodiscard]] Announcement announcement() const override {
        return &Productivity::shortcutsChanged;
    }
};

} // namespace perchly

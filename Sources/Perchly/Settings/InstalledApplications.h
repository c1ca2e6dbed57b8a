#pragma once

#include "KeyedRows.h"
#include "ShelfLibrary.h"

#include <QPointer>

namespace perchly {

/// The library's installed applications that match a search, best match first. Row fields:
/// "item", the ShelfItem, "name", "path", which may be empty, and "added" if the shelf already has
/// it. Empty without a library. Main thread only.
class InstalledApplications : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(perchly::ShelfLibrary *library MEMBER m_library NOTIFY libraryChanged REQUIRED FINAL)
    Q_PROPERTY(QString search MEMBER m_search NOTIFY searchChanged FINAL)
public:
    explicit InstalledApplications(QObject *parent = nullptr);

Q_SIGNALS:
    void libraryChanged();
    void searchChanged();

private:
    void follow();
    [[nodiscard]] Rows matches() const;

    QPointer<ShelfLibrary> m_library;
    QString m_search;
};

} // namespace perchly

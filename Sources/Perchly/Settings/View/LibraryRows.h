#pragma once

#include "KeyedRows.h"
#include "ShelfLibrary.h"

#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// The library's entries in their order: "entry", the ShelfItem. Empty until the library is given.
/// The base class is written in full here for the sake of the QML tools.
class LibraryRows : public perchly::KeyedRows {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(perchly::ShelfLibrary *library READ library WRITE setLibrary NOTIFY libraryChanged
                   REQUIRED FINAL)
    Q_PROPERTY(bool someRemovable READ someRemovable NOTIFY someRemovableChanged FINAL)
public:
    using KeyedRows::KeyedRows;

    [[nodiscard]] ShelfLibrary *library() const { return m_library; }
    void setLibrary(ShelfLibrary *library);

    /// An entry is there that can be removed.
    [[nodiscard]] bool someRemovable() const { return m_someRemovable; }

Q_SIGNALS:
    void libraryChanged();
    void someRemovableChanged();

private:
    void refresh();

    QPointer<ShelfLibrary> m_library;
    bool m_someRemovable = false;
};

} // namespace perchly

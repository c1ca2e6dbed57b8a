#pragma once

#include "InstalledApplications.h"
#include "ShelfItem.h"
#include "ShelfLibrary.h"
#include "ShelfPreferences.h"

#include <QtQml/qqml.h>

namespace perchly {

struct InstalledApplicationsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::InstalledApplications)
    QML_NAMED_ELEMENT(InstalledApplications)
};

struct ShelfItemForeign {
    Q_GADGET
    QML_FOREIGN(perchly::ShelfItem)
    QML_VALUE_TYPE(shelfItem)
};

struct ShelfLibraryForeign {
    Q_GADGET
    QML_FOREIGN(perchly::ShelfLibrary)
    QML_NAMED_ELEMENT(ShelfLibrary)
    QML_UNCREATABLE("Given to the views by the shell.")
};

struct ShelfPreferencesForeign {
    Q_GADGET
    QML_FOREIGN(perchly::ShelfPreferences)
    QML_NAMED_ELEMENT(ShelfPreferences)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly

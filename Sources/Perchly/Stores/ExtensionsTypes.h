#pragma once

#include "ShelfExtras.h"

#include <QtQml/qqml.h>

namespace perchly {

struct BatteryForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Battery)
    QML_ANONYMOUS
};

struct CaptureForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Capture)
    QML_ANONYMOUS
};

struct LaunchGroupsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::LaunchGroups)
    QML_ANONYMOUS
};

struct MeetingsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Meetings)
    QML_ANONYMOUS
};

struct SnippetsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Snippets)
    QML_ANONYMOUS
};

struct SearchResultsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::SearchResults)
    QML_NAMED_ELEMENT(SearchResults)
    QML_UNCREATABLE("Given to the views by the shell.")
};

struct ShelfExtrasForeign {
    Q_GADGET
    QML_FOREIGN(perchly::ShelfExtras)
    QML_NAMED_ELEMENT(ShelfExtras)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly

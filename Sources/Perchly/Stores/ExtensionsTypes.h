#pragma once

#include "SearchResults.h"
#include "ShelfExtras.h"

#include <QtQml/qqml.h>

namespace perchly {

struct LaunchGroupForeign {
    Q_GADGET
    QML_FOREIGN(perchly::LaunchGroup)
    QML_VALUE_TYPE(launchGroup)
};

struct SnippetForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Snippet)
    QML_VALUE_TYPE(snippet)
};

struct MeetingForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Meeting)
    QML_VALUE_TYPE(meeting)
};

struct ShelfExtrasForeign {
    Q_GADGET
    QML_FOREIGN(perchly::ShelfExtras)
    QML_NAMED_ELEMENT(ShelfExtras)
    QML_UNCREATABLE("Given to the views by the shell.")
};

struct SearchResultsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::SearchResults)
    QML_NAMED_ELEMENT(SearchResults)
};

} // namespace perchly

#pragma once

#include "ShelfExtras.h"

#include <QtQml/qqml.h>

namespace perchly {

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

} // namespace perchly

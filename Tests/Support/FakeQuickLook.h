#pragma once

#include "QuickLook.h"

namespace perchly {

/// Remembers what was looked at last.
class FakeQuickLook : public QuickLook {
public:
    void look(const QList<QUrl> &newItems, qsizetype newIndex, Manner newManner) override {
        items = newItems;
        index = newIndex;
        manner = newManner;
    }

    QList<QUrl> items;
    qsizetype index = -1;
    Manner manner = Manner::Show;
};

} // namespace perchly

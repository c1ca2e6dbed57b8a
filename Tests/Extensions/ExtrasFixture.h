#pragma once

#include "FakeHosts.h"
#include "Productivity.h"
#include "ShelfExtras.h"

namespace perchly {

/// The extras store beside those that it works with.
struct ExtrasFixture {
    [[nodiscard]] QByteArray stored(const QString &key) const {
        return fake.preferences.data(key).value_or(QByteArray());
    }

    FakeHosts fake;
    ShelfLibrary library{*fake.hosts.preferences, *fake.hosts.catalog, *fake.hosts.openPanel};
    Productivity tools{fake.hosts};
    ShelfExtras extras{fake.hosts};
};

} // namespace perchly

#pragma once

#include "PowerSources.h"

namespace perchly {

/// Answers from the event loop, as it must.
class FakePowerSources : public PowerSources {
public:
    void read(Completion completion) override {
        ++readings;
        QMetaObject::invokeMethod(
            this, [this, completion = std::move(completion)] { completion(reading); },
            Qt::QueuedConnection);
    }

    Reading reading = QList<PowerSource>();
    int readings = 0;
};

} // namespace perchly

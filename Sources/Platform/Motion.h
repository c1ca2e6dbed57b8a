#pragma once

#include <QObject>

namespace perchly {

/// Whether the user asked the desktop for reduced motion. Main thread only.
class Motion : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool reduced READ isReduced NOTIFY changed FINAL)
public:
    using QObject::QObject;

    /// False if the desktop has no answer.
    [[nodiscard]] virtual bool isReduced() const = 0;

Q_SIGNALS:
    void changed();
};

} // namespace perchly

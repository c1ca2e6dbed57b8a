#pragma once

#include <QObject>

namespace perchly {

/// Whether the user asked the desktop to reduce motion. Main thread only.
class Motion : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool reduced READ isReduced NOTIFY changed FINAL)
public:
    using QObject::QObject;

    /// False while the desktop does not say.
    [[nodiscard]] virtual bool isReduced() const = 0;

Q_SIGNALS:
    void changed();
};

} // namespace perchly

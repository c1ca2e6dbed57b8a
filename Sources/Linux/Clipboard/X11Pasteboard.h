#pragma once

#include "ReaderPasteboard.h"

namespace perchly {

/// The X server's clipboard. Writes through Qt, which passes our copy to the clipboard manager when
/// the application object is destroyed, and waits up to five seconds if the manager does not
/// confirm. Writing needs a QGuiApplication on X.
class X11Pasteboard : public ReaderPasteboard {
    Q_OBJECT
public:
    explicit X11Pasteboard(QObject *parent = nullptr);

protected:
    void offer(OwnCopy *copy) override;
    [[nodiscard]] bool isOurs(quint32 client) const override;

private:
    QPointer<OwnCopy> m_offered; ///< null once Qt drops it for another copy
};

} // namespace perchly

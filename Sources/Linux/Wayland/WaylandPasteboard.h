#pragma once

#include "ReaderPasteboard.h"

namespace perchly {

/// The clipboard of a Wayland compositor, which lets us read and make copies without the keyboard.
class WaylandPasteboard : public ReaderPasteboard {
    Q_OBJECT
public:
    explicit WaylandPasteboard(QObject *parent = nullptr);

protected:
    void offer(OwnCopy *copy) override;
    [[nodiscard]] bool isOurs(quint32 client) const override;
};

} // namespace perchly

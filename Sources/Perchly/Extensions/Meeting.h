#pragma once

#include "CalendarStore.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QUrl>

namespace perchly {

/// An upcoming event as the lists show it. Identified in them by `identifier`.
struct Meeting {
    Q_GADGET
    Q_PROPERTY(QString identifier READ identifier CONSTANT FINAL)
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QDateTime start READ start CONSTANT FINAL)
    Q_PROPERTY(QString startText READ startText CONSTANT FINAL)
    Q_PROPERTY(QUrl link READ link CONSTANT FINAL)
public:
    [[nodiscard]] QString identifier() const { return event.identifier; }
    /// "Meeting" for one without a title.
    [[nodiscard]] QString title() const;
    [[nodiscard]] QDateTime start() const;
    /// Weekday, hour and minute, in the person's own zone and manner.
    [[nodiscard]] QString startText() const;
    /// Those that may say where to join it, a line each; mostly the same for all of a series.
    [[nodiscard]] QString texts() const;
    /// Where to join it; empty when its texts do not say. Looked for at each call.
    [[nodiscard]] QUrl link() const;

    CalendarEvent event;

    bool operator==(const Meeting &) const = default;
};

} // namespace perchly

#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// The strip's horizontal paging. Offsets are in points: 0 shows the first entry, `lowest` the
/// last.
class StripPaging : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(double entryWidth MEMBER entryWidth CONSTANT FINAL)
    Q_PROPERTY(double pitch MEMBER pitch CONSTANT FINAL)
public:
    static constexpr double entryWidth = 66;
    static constexpr double pitch = 80; ///< from one entry to the next
    static constexpr double visibleWidth = 556;
    static constexpr double step = 480;

    using QObject::QObject;

    Q_INVOKABLE [[nodiscard]] static double lowest(qsizetype entries);
    /// The offset after one step towards the first or the last entry.
    Q_INVOKABLE [[nodiscard]] static double previous(double offset);
    Q_INVOKABLE [[nodiscard]] static double next(double offset, qsizetype entries);
    /// The offset after a drag that ended `translation` points to the right of its start.
    Q_INVOKABLE [[nodiscard]] static double dragged(double offset, double translation,
                                                    qsizetype entries);
    /// The offset after the steps needed to show the whole entry.
    Q_INVOKABLE [[nodiscard]] static double showing(qsizetype entry, double offset,
                                                    qsizetype entries);
    /// Whether the whole entry is visible.
    Q_INVOKABLE [[nodiscard]] static bool shows(qsizetype entry, double offset);
    /// The completely visible entry nearest to this one.
    Q_INVOKABLE [[nodiscard]] static qsizetype nearest(qsizetype entry, double offset,
                                                       qsizetype entries);
};

} // namespace perchly

#pragma once

#include <QObject>
#include <QString>
#include <QUuid>

namespace perchly {

/// A short text that is kept for copying again. Identified in lists by `id`.
struct Snippet {
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id CONSTANT FINAL)
    Q_PROPERTY(QString text MEMBER text CONSTANT FINAL)
public:
    QUuid id;
    QString text;

    bool operator==(const Snippet &) const = default;
};

} // namespace perchly

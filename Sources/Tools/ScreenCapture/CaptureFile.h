#pragma once

#include <QImage>
#include <QString>

namespace perchly {

/// Writes a PNG that its owner alone can read, all of it or nothing. Empty when it was done, else
/// why it was not.
[[nodiscard]] QString writeCapture(const QImage &picture, const QString &path);

} // namespace perchly

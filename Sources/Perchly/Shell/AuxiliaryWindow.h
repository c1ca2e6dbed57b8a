#pragma once

#include <QQuickView>

namespace perchly {

/// One of the program's ordinary windows. Closing it only hides it. Main thread only.
class AuxiliaryWindow : public QQuickView {
    Q_OBJECT
public:
    enum class Buttons { CloseMinimizeMaximize, CloseMaximize };

    /// Size in points, of the content. An empty source leaves the window without content. The
    /// engine must outlive the window.
    AuxiliaryWindow(QQmlEngine &engine, const QString &title, const QSize &size, Buttons buttons,
                    const QUrl &source, const QVariantMap &properties);

protected:
    bool event(QEvent *event) override;

private:
    [[nodiscard]] QRect centred(const QSize &size) const;
};

} // namespace perchly

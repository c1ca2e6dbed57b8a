#pragma once

#include <QQuickView>
#include <QTimer>

namespace perchly {

/// The properties of one auxiliary window.
struct WindowContent {
    enum class Buttons { CloseMinimizeMaximize, CloseMaximize };

    QString title;
    QSize size; ///< of the content, in points
    Buttons buttons = Buttons::CloseMinimizeMaximize;
    /// A local view; empty leaves the window empty. If its root has `minimumWidth` and
    /// `minimumHeight`, the window gets no smaller.
    QUrl view = {};
    QVariantMap properties = {}; ///< that the view is made with
};

/// One of the program's ordinary windows. Closing it (by its button, Ctrl+W, or Escape if nothing
/// in the view uses that) only hides it: it comes back as it was. Main thread only.
class AuxiliaryWindow : public QQuickView {
    Q_OBJECT
public:
    /// The engine must outlive the window.
    AuxiliaryWindow(QQmlEngine &engine, const WindowContent &content);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void applyMinimumSize();
    void giveMemoryBack();
    [[nodiscard]] QRect centred(const QSize &size) const;

    QTimer m_rest; ///< since it was closed
};

} // namespace perchly

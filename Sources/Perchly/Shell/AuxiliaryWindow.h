#pragma once

#include <QQuickView>
#include <QTimer>

namespace perchly {

/// The properties of one auxiliary window.
struct WindowContent {
    enum class Buttons { CloseMinimizeMaximize, CloseMaximize };

    QString title;
    QSize size; ///< size of the content, in points
    Buttons buttons = Buttons::CloseMinimizeMaximize;
    /// A local view; empty leaves the window empty. If its root item has `minimumWidth` and
    /// `minimumHeight`, they limit the window.
    QUrl view = {};
    QVariantMap properties = {}; ///< initial properties of the view
};

/// One of the program's ordinary windows. Closing it (by its button, Ctrl+W, or Escape unless the
/// view uses that) only hides it; it reappears unchanged. Main thread only.
class AuxiliaryWindow : public QQuickView {
    Q_OBJECT
public:
    /// The engine must outlive the window.
    AuxiliaryWindow(QQmlEngine &engine, const WindowContent &content);

    /// Moves the hidden window to the middle of that screen, below as many points at its top as the
    /// shelf covers, unless it appeared there before.
    void appearOn(QScreen *screen, int covered);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void applyMinimumSize();
    /// Keeps the size in points when the desktop's text size changes.
    void keepSize();
    void giveMemoryBack();
    [[nodiscard]] QRect centred(const QSize &size, int covered) const;

    bool m_hasAppeared = false;
    QTimer m_rest; ///< time since it was closed
    double m_ratio = devicePixelRatio();
};

} // namespace perchly

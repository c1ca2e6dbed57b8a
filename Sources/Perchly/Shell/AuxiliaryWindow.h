#pragma once

#include <QQuickView>
#include <QTimer>

namespace perchly {

/// What an auxiliary window is made of.
struct WindowContent {
    enum class Buttons { CloseMinimizeMaximize, CloseMaximize };

    QString title;
    QSize size; ///< of the content, in points
    Buttons buttons = Buttons::CloseMinimizeMaximize;
    /// The view's address, a local one; empty leaves the window without content. If its root has
    /// `minimumWidth` and `minimumHeight`, the window keeps to them.
    QUrl view = {};
    QVariantMap properties = {}; ///< that the view is made with
};

/// One of the program's ordinary windows. It loads its view when it is made; make it when it is
/// first asked for. Closing it, by its button, Ctrl+W, or Escape where nothing in the view wants
/// that, only hides it: it comes back as it was. Main thread only.
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

// Another program's window in the colour of the desktop. Prints "key" and the keysym for each key
// press, "press" for each button press, and "focus 1" or "focus 0" when it gets or loses the
// keyboard. A right press opens a menu.

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QRasterWindow>

#include <cstdio>

namespace {

void print(const char *word, quint32 value) {
    std::printf("%s %u\n", word, value);
    std::fflush(stdout);
}

class OtherWindow : public QRasterWindow {
protected:
    void paintEvent(QPaintEvent *) override {
        QPainter(this).fillRect(QRect(QPoint(), size()), QColor(0, 255, 0));
    }
    void keyPressEvent(QKeyEvent *event) override { print("key", event->nativeVirtualKey()); }
    void mousePressEvent(QMouseEvent *event) override {
        print("press", event->button());
        if (event->button() == Qt::RightButton) {
            m_menu.setFlag(Qt::Popup);
            m_menu.setTransientParent(this);
            m_menu.setGeometry(QRect(event->position().toPoint(), QSize(100, 100)));
            m_menu.show();
        }
    }
    void focusInEvent(QFocusEvent *) override { print("focus", 1); }
    void focusOutEvent(QFocusEvent *) override { print("focus", 0); }

private:
    QRasterWindow m_menu;
};

} // namespace

int main(int argc, char **argv) {
    const QGuiApplication application(argc, argv);
    OtherWindow window;
    window.setTitle(QStringLiteral("Other program"));
    window.show();
    return QGuiApplication::exec();
}

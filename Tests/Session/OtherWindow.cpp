// Another program's window in the colour of the desktop. Prints "key" and the keysym for each key
// press, "press" for each button press, and "focus 1" or "focus 0" when it gets or loses the
// keyboard.

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
    void mousePressEvent(QMouseEvent *event) override { print("press", event->button()); }
    void focusInEvent(QFocusEvent *) override { print("focus", 1); }
    void focusOutEvent(QFocusEvent *) override { print("focus", 0); }
};

} // namespace

int main(int argc, char **argv) {
    const QGuiApplication application(argc, argv);
    OtherWindow window;
    window.setTitle(QStringLiteral("Other program"));
    window.show();
    return QGuiApplication::exec();
}

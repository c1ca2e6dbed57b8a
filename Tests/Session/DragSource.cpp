// Another program from which files and links are dragged: a window at (100, 550) that offers to
// copy or to move them. It says on stdout "accepted" when a target would copy, and what became of a
// drop. Its arguments are what it offers; without any, it is a bit of everything.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <cstdio>

namespace {

QList<QUrl> someOfAll() {
    return {QUrl::fromLocalFile(QStringLiteral("/etc/hosts")),
            QUrl::fromLocalFile(QStringLiteral("/etc")),
            QUrl(QStringLiteral("https://example.org/page")),
            QUrl(QStringLiteral("ftp://example.org/file"))};
}

class Source : public QWidget {
protected:
    void mousePressEvent(QMouseEvent *) override {
        auto *held = new QMimeData;
        const QStringList given = QApplication::arguments().sliced(1);
        held->setUrls(given.isEmpty() ? someOfAll() : QUrl::fromStringList(given));
        auto *drag = new QDrag(this);
        drag->setMimeData(held);
        QObject::connect(drag, &QDrag::actionChanged, [](Qt::DropAction action) {
            if (action == Qt::CopyAction) {
                std::puts("accepted");
                std::fflush(stdout);
            }
        });
        const Qt::DropAction action = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
        std::puts(action == Qt::CopyAction   ? "copy"
                  : action == Qt::MoveAction ? "move"
                                             : "nothing");
        std::fflush(stdout);
    }
};

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    Source source;
    source.setWindowTitle(QStringLiteral("Drag source"));
    source.setGeometry(100, 550, 200, 100);
    source.show();
    return QApplication::exec();
}

// Another program to drag from and to: a window at (700, 550). A press drags its arguments, which
// are URLs, to copy or move. Prints "accepted" when a drag may be dropped, the action ("copy",
// "move" or "nothing") when its own drag ends, and a line of JSON for each drop on its window.

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <cstdio>

namespace {

void print(const QByteArray &line) {
    std::puts(line.constData());
    std::fflush(stdout);
}

class DragPartner : public QWidget {
public:
    DragPartner() { setAcceptDrops(true); }

protected:
    void mousePressEvent(QMouseEvent *) override {
        auto *offer = new QMimeData;
        offer->setUrls(QUrl::fromStringList(QApplication::arguments().sliced(1)));
        auto *drag = new QDrag(this);
        drag->setMimeData(offer);
        QObject::connect(drag, &QDrag::actionChanged, [](Qt::DropAction action) {
            if (action == Qt::CopyAction) {
                print("accepted");
            }
        });
        const Qt::DropAction action = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
        print(action == Qt::CopyAction ? "copy" : action == Qt::MoveAction ? "move" : "nothing");
    }

    void dragEnterEvent(QDragEnterEvent *event) override {
        event->acceptProposedAction();
        print("accepted");
    }

    void dropEvent(QDropEvent *event) override {
        QStringList urls;
        for (const QUrl &url : event->mimeData()->urls()) {
            urls.append(url.toString(QUrl::FullyEncoded));
        }
        const QJsonObject drop{
            {QStringLiteral("urls"), QJsonArray::fromStringList(urls)},
            {QStringLiteral("text"), event->mimeData()->text()},
            {QStringLiteral("may move"), event->possibleActions().testFlag(Qt::MoveAction)},
            {QStringLiteral("may copy"), event->possibleActions().testFlag(Qt::CopyAction)}};
        event->acceptProposedAction();
        print(QJsonDocument(drop).toJson(QJsonDocument::Compact));
    }
};

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    DragPartner partner;
    partner.setWindowTitle(QStringLiteral("Drag partner"));
    partner.setGeometry(700, 550, 200, 100);
    partner.show();
    return QApplication::exec();
}

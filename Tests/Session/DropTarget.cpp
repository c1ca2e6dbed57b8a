// Another program into which files and links are dragged: a window at (700, 550). It prints
// "accepted" when a drag enters, and one line of JSON for each drop.

#include <QApplication>
#include <QDragEnterEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <cstdio>

namespace {

class Target : public QWidget {
public:
    Target() { setAcceptDrops(true); }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override {
        event->acceptProposedAction();
        std::puts("accepted");
        std::fflush(stdout);
    }

    void dropEvent(QDropEvent *event) override {
        QJsonArray urls;
        for (const QUrl &url : event->mimeData()->urls())
            urls.append(url.toString(QUrl::FullyEncoded));
        const QJsonObject drop{
            {QStringLiteral("formats"), QJsonArray::fromStringList(event->mimeData()->formats())},
            {QStringLiteral("urls"), urls},
            {QStringLiteral("text"), event->mimeData()->text()},
            {QStringLiteral("may move"), event->possibleActions().testFlag(Qt::MoveAction)},
            {QStringLiteral("may copy"), event->possibleActions().testFlag(Qt::CopyAction)}};
        event->acceptProposedAction();
        std::puts(QJsonDocument(drop).toJson(QJsonDocument::Compact).constData());
        std::fflush(stdout);
    }
};

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    Target target;
    target.setWindowTitle(QStringLiteral("Drop target"));
    target.setGeometry(700, 550, 200, 100);
    target.show();
    return QApplication::exec();
}

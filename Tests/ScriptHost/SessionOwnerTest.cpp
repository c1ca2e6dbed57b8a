#include "SessionOwner.h"

#include <QTest>

using namespace perchly;

class SessionOwnerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void remembersAndChooses_data() {
        QTest::addColumn<PlayerMemory>("before");
        QTest::addColumn<QByteArray>("looks"); ///< each a name and a state; see below
        QTest::addColumn<QByteArray>("after");
        QTest::addColumn<QByteArray>("owner");
        const auto row = [](const char *name, const PlayerMemory &before, const char *looks,
                            const char *after, const char *owner) {
            QTest::newRow(name) << before << QByteArray(looks) << QByteArray(after)
                                << QByteArray(owner);
        };
        row("the first look takes the first that plays", {}, "a:paused b:playing c:playing",
            "+b+c-a", "b");
        row("one that starts to play comes first", {{"a", true}, {"b", false}},
            "a:playing b:playing", "+b+a", "b");
        row("and is the owner again when nothing plays", {{"a", false}, {"b", true}},
            "a:paused b:paused", "-a-b", "a");
        row("but one that we paused stays the owner", {{"a", true, true}, {"b", true}},
            "a:paused b:playing", "=a+b", "a");
        row("until another starts to play", {{"a", false, true}, {"b", false}},
            "a:paused b:playing", "+b-a", "b");
        row("or it stops", {{"a", false, true}, {"b", true}}, "a:stopped b:playing", "-a+b", "b");
        row("or leaves", {{"a", false, true}, {"b", true}}, "b:playing", "+b", "b");
        row("one without a title never owns it", {{"a", true}}, "a:untitled b:paused", "-a-b", "b");
        row("one that hangs keeps its place", {{"a", true}, {"b", false}}, "a:hanging b:paused",
            "+a-b", "b");
    }

    void remembersAndChooses() {
        QFETCH(const PlayerMemory, before);
        QFETCH(const QByteArray, looks);
        std::vector<Player> players;
        for (const QByteArray &look : looks.split(' ')) {
            const QByteArray state = look.mid(2);
            Player player;
            player.busName = look.left(1).toStdString();
            player.answered = state != "hanging";
            player.title = state == "untitled" ? "" : "Title";
            player.playback = state == "stopped"  ? Playback::Stopped
                              : state == "paused" ? Playback::Paused
                                                  : Playback::Playing;
            players.push_back(player);
        }
        const PlayerMemory after = remember(before, players);
        QByteArray shown;
        for (const auto &[name, playing, held] : after) {
            shown += (held ? "=" : playing ? "+" : "-") + QByteArray::fromStdString(name);
        }
        QTEST(shown, "after");
        const Player *owner = sessionOwner(after, players);
        QTEST(QByteArray(owner != nullptr ? owner->busName.c_str() : ""), "owner");
    }
};

QTEST_APPLESS_MAIN(SessionOwnerTest)
#include "SessionOwnerTest.moc"

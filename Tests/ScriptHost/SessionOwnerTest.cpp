#include "SessionOwner.h"

#include <QTest>

using namespace perchly;

namespace {

struct Look {
    const char *name;
    char state; ///< p(laying), h(alted), s(topped), u(ntitled but playing), n(o answer)
};

using Looks = std::vector<Look>;

std::vector<Player> players(const Looks &looks) {
    std::vector<Player> all;
    for (const Look &look : looks) {
        Player player;
        player.busName = look.name;
        player.answered = look.state != 'n';
        player.title = look.state == 'u' ? "" : "Title";
        player.playback = look.state == 's'   ? Playback::Stopped
                          : look.state == 'h' ? Playback::Paused
                                              : Playback::Playing;
        all.push_back(player);
    }
    return all;
}

QString shown(const PlayerMemory &memory) {
    QString text;
    for (const RememberedPlayer &player : memory) {
        text += QLatin1StringView(player.held      ? "="
                                  : player.playing ? "+"
                                                   : "-") +
                QString::fromStdString(player.busName);
    }
    return text;
}

} // namespace

class SessionOwnerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void remembersAndChooses_data() {
        QTest::addColumn<PlayerMemory>("before");
        QTest::addColumn<Looks>("now");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("owner");
        const auto row = [](const char *name, const PlayerMemory &before, const Looks &now,
                            const char *after, const char *owner) {
            QTest::newRow(name) << before << now << QString::fromUtf8(after)
                                << QString::fromUtf8(owner);
        };
        row("the first look takes the first that plays", {}, {{"a", 'h'}, {"b", 'p'}, {"c", 'p'}},
            "+b+c-a", "b");
        row("a paused one, when none plays", {}, {{"a", 's'}, {"b", 'h'}}, "-a-b", "b");
        row("one that begins to play comes first", {{"a", true}, {"b", false}},
            {{"a", 'p'}, {"b", 'p'}}, "+b+a", "b");
        row("a paused owner gives way to one that plays", {{"a", true}, {"b", true}},
            {{"a", 'h'}, {"b", 'p'}}, "-a+b", "b");
        row("and is the owner again when nothing plays", {{"a", false}, {"b", true}},
            {{"a", 'h'}, {"b", 'h'}}, "-a-b", "a");
        row("but one that we paused stays the owner", {{"a", true, true}, {"b", true}},
            {{"a", 'h'}, {"b", 'p'}}, "=a+b", "a");
        row("until another begins to play", {{"a", false, true}, {"b", false}},
            {{"a", 'h'}, {"b", 'p'}}, "+b-a", "b");
        row("or it stops", {{"a", false, true}, {"b", true}}, {{"a", 's'}, {"b", 'p'}}, "-a+b",
            "b");
        row("a new paused one comes last", {{"b", false}}, {{"a", 'h'}, {"b", 'h'}}, "-b-a", "b");
        row("one that has gone is forgotten", {{"a", true}, {"b", true}}, {{"b", 'p'}}, "+b", "b");
        row("one without a title never owns it", {{"a", true}}, {{"a", 'u'}, {"b", 'h'}}, "-a-b",
            "b");
        row("one that is silent keeps its place", {{"a", true}, {"b", false}},
            {{"a", 'n'}, {"b", 'h'}}, "+a-b", "b");
    }

    void remembersAndChooses() {
        QFETCH(const PlayerMemory, before);
        QFETCH(const Looks, now);
        const std::vector<Player> all = players(now);
        const PlayerMemory after = remember(before, all);
        QTEST(shown(after), "after");
        const Player *owner = sessionOwner(after, all);
        QTEST(owner != nullptr ? QString::fromStdString(owner->busName) : QString(), "owner");
    }
};

QTEST_APPLESS_MAIN(SessionOwnerTest)
#include "SessionOwnerTest.moc"

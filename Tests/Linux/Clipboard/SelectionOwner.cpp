// Another program that has copied something, as well-behaved as it is told to be:
//   selectionowner [OPTION …] TARGET=TEXT | TARGET@FILE | TARGET:SIZE …
// It takes the clipboard, says "owns" and then "asked TARGET" and "gave TARGET" for each request.
// Options: --increments BYTES  gives what is longer in parts of this size
//          --mute TARGET       never answers a request for it
//          --dies-after PARTS  is killed after as many parts
//          --never-ends        goes on giving parts
//          --type TARGET       gives everything as this type
//          --more-targets N    offers N targets besides
//          --primary           takes the primary selection instead
//          --manager           is the clipboard manager, too

#include "XClient.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QMap>

#include <csignal>
#include <cstdio>
#include <optional>

using namespace perchly;

namespace {

struct Behaviour {
    qsizetype part = 0;
    QByteArray mute;
    int diesAfter = -1;
    bool neverEnds = false;
    QByteArray type;
    int moreTargets = 0;
    QByteArray selection = "CLIPBOARD";
    bool isManager = false;
};

struct Outgoing {
    QByteArray target;
    xcb_window_t window;
    xcb_atom_t property;
    xcb_atom_t type;
    qsizetype sent = 0;
};

void say(const char *word, const QByteArray &target = {}) {
    std::printf("%s%s%s\n", word, target.isEmpty() ? "" : " ", target.constData());
    std::fflush(stdout);
}

class Owner {
public:
    Owner(const QMap<QByteArray, QByteArray> &forms, Behaviour behaviour)
        : m_forms(forms)
        , m_behaviour(std::move(behaviour))
        , m_selection(m_client.atom(m_behaviour.selection))
        , m_targets(m_client.atom("TARGETS")) {
        for (auto form = m_forms.keyBegin(); form != m_forms.keyEnd(); ++form)
            m_names.insert(m_client.atom(*form), *form);
        m_names.insert(m_targets, "TARGETS");
    }

    int run() {
        const xcb_window_t window = m_client.makeWindow({0, 0, 1, 1});
        if (m_behaviour.isManager)
            xcb_set_selection_owner(m_client.get(), window, m_client.atom("CLIPBOARD_MANAGER"),
                                    XCB_CURRENT_TIME);
        xcb_set_selection_owner(m_client.get(), window, m_selection, XCB_CURRENT_TIME);
        m_client.sync();
        say("owns");
        while (const XcbPointer<xcb_generic_event_t> event{xcb_wait_for_event(m_client.get())})
            handle(*event);
        return 0;
    }

private:
    void handle(const xcb_generic_event_t &event) {
        const int type = event.response_type & 0x7f;
        if (type == XCB_SELECTION_REQUEST)
            answer(reinterpret_cast<const xcb_selection_request_event_t &>(event));
        if (type == XCB_PROPERTY_NOTIFY)
            goOn(reinterpret_cast<const xcb_property_notify_event_t &>(event));
        xcb_flush(m_client.get());
    }

    void answer(const xcb_selection_request_event_t &request) {
        const QByteArray target = m_names.value(request.target, "unknown");
        say("asked", target);
        if (target == m_behaviour.mute)
            return;
        xcb_selection_notify_event_t event{};
        event.response_type = XCB_SELECTION_NOTIFY;
        event.requestor = request.requestor;
        event.selection = request.selection;
        event.target = request.target;
        event.time = request.time;
        event.property = give(target, request) ? request.property : xcb_atom_t{XCB_ATOM_NONE};
        xcb_send_event(m_client.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char *>(&event));
    }

    bool give(const QByteArray &target, const xcb_selection_request_event_t &request) {
        if (request.target == m_targets) {
            QList<quint32> targets = m_names.keys();
            for (int i = 0; i < m_behaviour.moreTargets; ++i)
                targets.append(XCB_ATOM_WM_NAME);
            set(request, XCB_ATOM_ATOM, 32, targets.size(), targets.constData());
            return true;
        }
        if (!m_forms.contains(target))
            return false;
        const QByteArray bytes = m_forms.value(target);
        const xcb_atom_t type =
            m_behaviour.type.isEmpty() ? request.target : m_client.atom(m_behaviour.type);
        if (m_behaviour.part > 0 && bytes.size() > m_behaviour.part) {
            const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
            xcb_change_window_attributes(m_client.get(), request.requestor, XCB_CW_EVENT_MASK,
                                         &mask);
            const auto size = quint32(bytes.size());
            m_outgoing = Outgoing{target, request.requestor, request.property, type};
            set(request, m_client.atom("INCR"), 32, 1, &size);
            return true;
        }
        set(request, type, 8, bytes.size(), bytes.constData());
        say("gave", target);
        return true;
    }

    void goOn(const xcb_property_notify_event_t &event) {
        if (!m_outgoing || event.window != m_outgoing->window ||
            event.atom != m_outgoing->property || event.state != XCB_PROPERTY_DELETE)
            return;
        if (m_behaviour.diesAfter-- == 0)
            std::raise(SIGKILL);
        const QByteArray bytes = m_forms.value(m_outgoing->target);
        if (m_behaviour.neverEnds)
            m_outgoing->sent = 0;
        const qsizetype size = std::min(m_behaviour.part, bytes.size() - m_outgoing->sent);
        xcb_change_property(m_client.get(), XCB_PROP_MODE_REPLACE, m_outgoing->window,
                            m_outgoing->property, m_outgoing->type, 8, quint32(size),
                            bytes.constData() + m_outgoing->sent);
        m_outgoing->sent += size;
        if (size == 0)
            say("gave", std::exchange(m_outgoing, std::nullopt)->target);
    }

    void set(const xcb_selection_request_event_t &request, xcb_atom_t type, quint8 format,
             qsizetype count, const void *values) {
        xcb_change_property(m_client.get(), XCB_PROP_MODE_REPLACE, request.requestor,
                            request.property, type, format, quint32(count), values);
    }

    QMap<QByteArray, QByteArray> m_forms;
    Behaviour m_behaviour;
    XClient m_client;
    xcb_atom_t m_selection;
    xcb_atom_t m_targets;
    QMap<xcb_atom_t, QByteArray> m_names;
    std::optional<Outgoing> m_outgoing;
};

QMap<QByteArray, QByteArray> formsFrom(const QStringList &arguments) {
    QMap<QByteArray, QByteArray> forms;
    for (const QString &argument : arguments) {
        const QByteArray form = argument.toUtf8();
        // A target may hold a "=" itself, as "text/plain;charset=utf-8" does.
        if (const qsizetype at = form.lastIndexOf('='); at >= 0)
            forms.insert(form.left(at), form.mid(at + 1));
        else if (const qsizetype name = form.indexOf('@'); name >= 0) {
            QFile file(QString::fromUtf8(form.mid(name + 1)));
            if (file.open(QIODevice::ReadOnly))
                forms.insert(form.left(name), file.readAll());
        } else if (const qsizetype size = form.lastIndexOf(':'); size >= 0)
            forms.insert(form.left(size), QByteArray(form.mid(size + 1).toLongLong(), 'a'));
    }
    return forms;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    const auto option = [&parser](const char *name) {
        const QString text = QString::fromLatin1(name);
        parser.addOption({text, text, text});
        return text;
    };
    const QString increments = option("increments");
    const QString mute = option("mute");
    const QString dies = option("dies-after");
    const QString type = option("type");
    const QString more = option("more-targets");
    parser.addOption({QStringLiteral("never-ends"), QStringLiteral("never-ends")});
    parser.addOption({QStringLiteral("primary"), QStringLiteral("primary")});
    parser.addOption({QStringLiteral("manager"), QStringLiteral("manager")});
    parser.process(application);
    Behaviour behaviour;
    behaviour.part = parser.value(increments).toLongLong();
    behaviour.mute = parser.value(mute).toUtf8();
    behaviour.diesAfter = parser.isSet(dies) ? parser.value(dies).toInt() : -1;
    behaviour.neverEnds = parser.isSet(QStringLiteral("never-ends"));
    behaviour.type = parser.value(type).toUtf8();
    behaviour.moreTargets = parser.value(more).toInt();
    behaviour.isManager = parser.isSet(QStringLiteral("manager"));
    if (parser.isSet(QStringLiteral("primary")))
        behaviour.selection = "PRIMARY";
    return Owner(formsFrom(parser.positionalArguments()), behaviour).run();
}

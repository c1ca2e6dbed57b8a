#include "SelectionOffer.h"

#include "SelectionConnection.h"

namespace perchly {

namespace {

void notify(const SelectionConnection &connection, const xcb_selection_request_event_t &request,
            xcb_atom_t property) {
    xcb_selection_notify_event_t event{};
    event.response_type = XCB_SELECTION_NOTIFY;
    event.time = request.time;
    event.requestor = request.requestor;
    event.selection = request.selection;
    event.target = request.target;
    event.property = property;
    xcb_send_event(connection.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&event));
}

} // namespace

const QString *textOf(const SelectionContents &contents) {
    const auto *items = std::get_if<SelectionItems>(&contents);
    return items ? &items->text : std::get_if<QString>(&contents);
}

SelectionOffer::SelectionOffer(const SelectionConnection &connection, SelectionSending &sending,
                               SelectionContents contents, xcb_timestamp_t time)
    : m_connection(connection)
    , m_sending(sending)
    , m_contents(std::move(contents))
    , m_time(time) {}

void SelectionOffer::answer(const xcb_selection_request_event_t &request) {
    // Old programs name no property and mean the one called like the target.
    const xcb_atom_t property =
        request.property == XCB_ATOM_NONE ? request.target : request.property;
    // Asked before this copy was made: another was meant. The server's clock runs over.
    const bool isOutdated =
        request.time != XCB_CURRENT_TIME && static_cast<qint32>(request.time - m_time) < 0;
    const bool isAnswered =
        !isOutdated && (request.target == m_connection.atoms().multiple
                            ? convertSeveral(request.requestor, property)
                            : convert(request.requestor, request.target, property));
    notify(m_connection, request, isAnswered ? property : xcb_atom_t{XCB_ATOM_NONE});
}

void SelectionOffer::refuse(const SelectionConnection &connection,
                            const xcb_selection_request_event_t &request) {
    notify(connection, request, XCB_ATOM_NONE);
}

QList<xcb_atom_t> SelectionOffer::forms() const {
    const SelectionAtoms &atoms = m_connection.atoms();
    if (std::holds_alternative<SelectionImage>(m_contents)) {
        return {atoms.png, atoms.tiff};
    }
    QList<xcb_atom_t> forms;
    if (const auto *items = std::get_if<SelectionItems>(&m_contents)) {
        forms.append(atoms.uriList);
        if (!items->copiedFiles.isEmpty()) {
            forms += {atoms.copiedFiles, atoms.mateCopiedFiles};
        }
    }
    return forms + QList<xcb_atom_t>{atoms.utf8String, atoms.utf8Text, XCB_ATOM_STRING,
                                     atoms.plainText, atoms.anyText};
}

bool SelectionOffer::convert(xcb_window_t window, xcb_atom_t target, xcb_atom_t property) {
    const SelectionAtoms &atoms = m_connection.atoms();
    const QList<xcb_atom_t> data = forms();
    if (target == atoms.targets) {
        set(window, property, XCB_ATOM_ATOM,
            data + QList<xcb_atom_t>{atoms.targets, atoms.timestamp, atoms.multiple});
        return true;
    }
    if (target == atoms.timestamp) {
        set(window, property, XCB_ATOM_INTEGER, {m_time});
        return true;
    }
    if (!data.contains(target)) {
        return false;
    }
    const QByteArray bytes = bytesFor(target);
    if (bytes.isEmpty() && std::holds_alternative<SelectionImage>(m_contents)) {
        return false;
    }
    m_sending.send(window, property, target == atoms.anyText ? atoms.utf8String : target, bytes);
    return true;
}

// What cannot be had is struck out of the list of wishes.
bool SelectionOffer::convertSeveral(xcb_window_t window, xcb_atom_t property) {
    QList<xcb_atom_t> wishes = m_connection.atomsIn(window, property);
    if (wishes.isEmpty() || wishes.size() % 2 != 0) {
        return false;
    }
    for (qsizetype i = 0; i < wishes.size(); i += 2) {
        if (!convert(window, wishes[i], wishes[i + 1])) {
            wishes[i + 1] = XCB_ATOM_NONE;
        }
    }
    set(window, property, m_connection.atoms().atomPair, wishes);
    return true;
}

QByteArray SelectionOffer::bytesFor(xcb_atom_t target) {
    const SelectionAtoms &atoms = m_connection.atoms();
    const auto *items = std::get_if<SelectionItems>(&m_contents);
    if (items && target == atoms.uriList) {
        return items->uriList;
    }
    if (items && (target == atoms.copiedFiles || target == atoms.mateCopiedFiles)) {
        return items->copiedFiles;
    }
    if (const QString *text = textOf(m_contents)) {
        return target == XCB_ATOM_STRING ? text->toLatin1() : text->toUtf8();
    }
    auto &image = std::get<SelectionImage>(m_contents);
    if (target == atoms.tiff) {
        completeTiff(image);
        return image.tiff;
    }
    completePng(image);
    return image.png;
}

void SelectionOffer::set(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                         const QList<quint32> &values) const {
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<quint32>(values.size()), values.constData());
}

} // namespace perchly

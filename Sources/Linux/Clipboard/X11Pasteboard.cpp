#include "X11Pasteboard.h"

#include "OwnCopy.h"
#include "QtConnection.h"
#include "SelectionClient.h"

#include <QClipboard>
#include <QGuiApplication>

namespace perchly {

X11Pasteboard::X11Pasteboard(QObject *parent)
    : ReaderPasteboard(
          [](CopyClient::Changed changed) {
              return std::make_unique<SelectionClient>(std::move(changed));
          },
          parent) {}

void X11Pasteboard::offer(OwnCopy *copy) {
    m_offered = copy;
    QGuiApplication::clipboard()->setMimeData(copy);
}

bool X11Pasteboard::isOurs(quint32 client) const {
    return m_offered && client == xcb_get_setup(qtConnection())->resource_id_base;
}

} // namespace perchly

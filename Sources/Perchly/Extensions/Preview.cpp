// Looking at held files without opening them.

#include "Hosts.h"
#include "ShelfExtras.h"

namespace perchly {

void ShelfExtras::preview(const QUrl &url, const QList<QUrl> &among) {
    lookAt(url, among, QuickLook::Manner::Show);
}

void ShelfExtras::togglePreview(const QUrl &url, const QList<QUrl> &among) {
    lookAt(url, among, QuickLook::Manner::Toggle);
}

void ShelfExtras::lookAt(const QUrl &url, const QList<QUrl> &among, QuickLook::Manner manner) {
    if (url != m_previewUrl) {
        m_previewUrl = url;
        Q_EMIT previewUrlChanged();
    }
    const qsizetype index = among.indexOf(url);
    if (index >= 0) {
        m_hosts.quickLook->look(among, index, manner);
    } else {
        m_hosts.quickLook->look({url}, 0, manner);
    }
}

} // namespace perchly

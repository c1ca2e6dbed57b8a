#include "SelectionItems.h"

#include <QStringList>

namespace perchly {

SelectionItems selectionItems(const QList<QUrl> &urls) {
    SelectionItems items{.uriList = {}, .copiedFiles = "copy", .text = {}};
    QStringList lines;
    for (const QUrl &url : urls) {
        const QByteArray uri = url.toEncoded(QUrl::FullyEncoded);
        items.uriList += uri + "\r\n";
        if (!url.isLocalFile()) {
            items.copiedFiles.clear();
        } else if (!items.copiedFiles.isEmpty()) {
            items.copiedFiles += '\n' + uri;
        }
        lines.append(url.isLocalFile() ? url.toLocalFile() : QString::fromLatin1(uri));
    }
    items.text = lines.join(u'\n');
    return items;
}

} // namespace perchly

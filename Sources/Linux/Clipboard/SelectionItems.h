#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

namespace perchly {

/// Files and links in the forms in which other programs ask for them.
struct SelectionItems {
    QByteArray uriList;
    QByteArray copiedFiles; ///< what file managers take as "copy these"; empty if some are links
    QString text;           ///< paths and links, one in a line
};

[[nodiscard]] SelectionItems selectionItems(const QList<QUrl> &urls);

} // namespace perchly

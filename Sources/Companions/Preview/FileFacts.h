#pragma once

#include <QString>
#include <QUrl>

namespace perchly {

/// Facts about a file or link, found without reading all of it.
struct FileFacts {
    enum class Kind { Picture, Text, Pdf, Media, Other };

    Kind kind = Kind::Other;
    QString name = {};
    QString details = {};  ///< "PNG image · 2.3 MB"
    QString iconName = {}; ///< of the icon theme
};

/// Opens only regular files. Anything else, and a missing file, has only a name. Blocks while
/// reading; any thread.
[[nodiscard]] FileFacts factsOf(const QUrl &url);

} // namespace perchly

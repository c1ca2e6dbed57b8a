#pragma once

#include <QString>
#include <QUrl>

namespace perchly {

/// What can be told of a file or link without looking far into it.
struct FileFacts {
    enum class Kind { Picture, Text, Pdf, Media, Other };

    Kind kind = Kind::Other;
    QString name = {};
    QString details = {};  ///< "PNG image · 2.3 MB"
    QString iconName = {}; ///< of the icon theme
};

/// Opens regular files only; anything else, and a missing file, keeps just its name.
/// Blocks while the file is looked at; any thread.
[[nodiscard]] FileFacts factsOf(const QUrl &url);

} // namespace perchly

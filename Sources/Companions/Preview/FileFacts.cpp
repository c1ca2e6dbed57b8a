#include "FileFacts.h"

#include "ShownText.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QMimeDatabase>

#include <algorithm>
#include <array>

namespace perchly {

namespace {

bool isText(const QMimeType &type) {
    static const std::array texts{QStringLiteral("text/plain"), QStringLiteral("application/json"),
                                  QStringLiteral("application/xml")};
    return std::ranges::any_of(texts, [&](const QString &text) { return type.inherits(text); });
}

FileFacts::Kind kindOf(const QMimeType &type) {
    const QString name = type.name();
    if (name == QLatin1StringView("application/pdf")) {
        return FileFacts::Kind::Pdf;
    }
    if (name.startsWith(QLatin1StringView("image/"))) {
        return FileFacts::Kind::Picture;
    }
    if (isText(type)) { // also playlists, which are called audio
        return FileFacts::Kind::Text;
    }
    const bool isMedia = name.startsWith(QLatin1StringView("audio/")) ||
                         name.startsWith(QLatin1StringView("video/"));
    return isMedia ? FileFacts::Kind::Media : FileFacts::Kind::Other;
}

/// Goes by the name, or by the content if the name is ambiguous or says sound or video for a text:
/// a player would follow the links of a manifest.
QMimeType typeOf(const QFileInfo &file) {
    const QMimeDatabase types;
    if (!file.isFile()) {
        return types.mimeTypeForFile(file, QMimeDatabase::MatchExtension);
    }
    const QMimeType type = types.mimeTypeForFile(file);
    if (kindOf(type) == FileFacts::Kind::Media) {
        const QMimeType content = types.mimeTypeForFile(file, QMimeDatabase::MatchContent);
        return isText(content) ? content : type;
    }
    return type;
}

QString capitalized(const QString &text) {
    return text.isEmpty() ? text : text.front().toUpper() + text.mid(1);
}

} // namespace

FileFacts factsOf(const QUrl &url) {
    if (!url.isLocalFile()) {
        return {.name = url.toString(QUrl::FullyEncoded),
                .details = QCoreApplication::translate("FileFacts", "Web link"),
                .iconName = QStringLiteral("text-html")};
    }
    const QFileInfo file(url.toLocalFile());
    // Direction marks could disguise the extension.
    FileFacts facts{.name =
                        inOneLine(file.fileName().isEmpty() ? file.filePath() : file.fileName())};
    if (!file.exists()) {
        facts.details = QCoreApplication::translate("FileFacts", "No longer there");
        facts.iconName = QStringLiteral("unknown");
        return facts;
    }
    const QMimeType type = typeOf(file);
    facts.details = type.isDefault() ? QCoreApplication::translate("FileFacts", "Document")
                                     : capitalized(type.comment());
    facts.iconName = type.iconName();
    if (file.isFile()) {
        facts.kind = kindOf(type);
        facts.details += QStringLiteral(" · ") +
                         QLocale().formattedDataSize(file.size(), 1, QLocale::DataSizeSIFormat);
    } else if (file.isDir()) {
        facts.details = QCoreApplication::translate("FileFacts", "Folder");
        facts.iconName = QStringLiteral("folder");
    }
    return facts;
}

} // namespace perchly

#include "PreviewContent.h"

#include <QFile>
#include <QImageReader>
#include <QStringDecoder>

#include <algorithm>

namespace perchly {

namespace {

constexpr qint64 mostText = 1 << 20;
constexpr int mostMegabytes = 512; // of a decoded picture
constexpr qsizetype longestLine = 4000;

QImage loadPicture(const QString &path, const QSize &largest) {
    QImageReader::setAllocationLimit(mostMegabytes);
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isValid() && (size.width() > largest.width() || size.height() > largest.height())) {
        reader.setScaledSize(size.scaled(largest, Qt::KeepAspectRatio).expandedTo({1, 1}));
    }
    const QImage picture = reader.read();
    if (picture.width() <= largest.width() && picture.height() <= largest.height()) {
        return picture;
    }
    return picture.scaled(largest, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// Lines that a text view would take seconds to lay out are broken.
QString withoutEndlessLines(const QString &text) {
    QString result;
    result.reserve(text.size());
    qsizetype length = 0;
    for (const QChar character : text) {
        length = character == u'\n' ? 0 : length + 1;
        if (length > longestLine && !character.isLowSurrogate()) {
            result += u'\n';
            length = 1;
        }
        result += character;
    }
    return result;
}

/// Null if it is no text.
QString loadText(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray bytes = file.read(mostText);
    const auto encoding = QStringConverter::encodingForData(bytes);
    if (!encoding && bytes.contains('\0')) {
        return {};
    }
    QStringDecoder decoder(encoding.value_or(QStringConverter::Utf8));
    QString text = decoder(bytes);
    if (decoder.hasError()) {
        text = QString::fromLatin1(bytes);
    }
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text.isNull() ? QStringLiteral("") : withoutEndlessLines(text);
}

} // namespace

PreviewContent loadPreview(const QUrl &url, const QSize &largestPicture) {
    PreviewContent content{.facts = factsOf(url)};
    const QString path = url.toLocalFile();
    if (content.facts.kind == FileFacts::Kind::Picture) {
        content.picture = loadPicture(path, largestPicture);
        if (content.picture.isNull()) {
            content.facts.kind = FileFacts::Kind::Other;
        }
    } else if (content.facts.kind == FileFacts::Kind::Text) {
        content.text = loadText(path);
        if (content.text.isNull()) {
            content.facts.kind = FileFacts::Kind::Other;
        }
    }
    return content;
}

} // namespace perchly

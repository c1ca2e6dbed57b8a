#include "PreviewContent.h"

#include "SvgLinks.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QPdfDocument>
#include <QStringDecoder>

#include <algorithm>

namespace perchly {

namespace {

constexpr qint64 maxTextBytes = 1 << 20;
constexpr qint64 maxPdfBytes = 512 << 20;
constexpr int maxPictureMegabytes = 512; // when decoded
constexpr qsizetype maxLineLength = 4000;

QImage loadPicture(const QString &path, const QSize &largest) {
    QImageReader::setAllocationLimit(maxPictureMegabytes);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    if (reader.format().startsWith("svg") && svgMayNameFiles(file)) {
        return {};
    }
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

/// Breaks lines that a text view would take seconds to lay out.
QString withoutEndlessLines(const QString &text) {
    QString result;
    result.reserve(text.size());
    qsizetype length = 0;
    for (const QChar character : text) {
        length = character == u'\n' ? 0 : length + 1;
        if (length > maxLineLength && !character.isLowSurrogate()) {
            result += u'\n';
            length = 1;
        }
        result += character;
    }
    return result;
}

/// Null if it is not a PDF that can be shown. Keeps the whole file in memory, so that drawing pages
/// never waits for a disk.
std::shared_ptr<QPdfDocument> loadPdf(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > maxPdfBytes) {
        return {};
    }
    auto document = std::make_shared<QPdfDocument>();
    auto *bytes = new QBuffer(document.get());
    bytes->setData(file.readAll());
    bytes->open(QIODevice::ReadOnly);
    document->load(bytes);
    if (document->status() != QPdfDocument::Status::Ready || document->pageCount() == 0) {
        return {};
    }
    document->moveToThread(QCoreApplication::instance()->thread());
    return document;
}

/// Null if it is not text.
QString loadText(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray bytes = file.read(maxTextBytes);
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

PreviewContent loadPreview(const QUrl &url, const QSize &maxPicture) {
    PreviewContent content{.facts = factsOf(url)};
    const QString path = url.toLocalFile();
    bool isShown = true;
    switch (content.facts.kind) {
    case FileFacts::Kind::Picture:
        content.picture = loadPicture(path, maxPicture);
        isShown = !content.picture.isNull();
        break;
    case FileFacts::Kind::Text:
        content.text = loadText(path);
        isShown = !content.text.isNull();
        break;
    case FileFacts::Kind::Pdf:
        content.pdf = loadPdf(path);
        isShown = content.pdf != nullptr;
        break;
    case FileFacts::Kind::Media:
    case FileFacts::Kind::Other:
        break;
    }
    if (!isShown) {
        content.facts.kind = FileFacts::Kind::Other;
    }
    return content;
}

} // namespace perchly

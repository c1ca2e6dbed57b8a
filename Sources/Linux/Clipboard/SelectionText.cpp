#include "SelectionText.h"

#include <QStringDecoder>

namespace perchly {

QString selectionText(const QByteArray &bytes, SelectionEncoding encoding) {
    switch (encoding) {
    case SelectionEncoding::Utf8:
        return QString::fromUtf8(bytes);
    case SelectionEncoding::Latin1:
        return QString::fromLatin1(bytes);
    case SelectionEncoding::Unknown:
        break;
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    return decoder.hasError() ? QString::fromLatin1(bytes) : text;
}

bool fitsInUtf8(const QString &text, qsizetype longest) {
    return text.size() <= longest && text.toUtf8().size() <= longest;
}

} // namespace perchly

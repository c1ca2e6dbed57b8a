#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUuid>

#include <optional>

namespace perchly {

/// One entry of the clipboard history: a text or a picture, identified by `id`. Copies share what
/// they hold.
struct Clip {
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id CONSTANT FINAL)
    Q_PROPERTY(QString label READ label CONSTANT FINAL)
    Q_PROPERTY(bool isImage READ isImage CONSTANT FINAL)
public:
    QUuid id = QUuid::createUuid();
    std::optional<QString> text = std::nullopt;
    std::optional<QByteArray> image = std::nullopt; ///< PNG or TIFF, as it was copied

    [[nodiscard]] static Clip ofText(const QString &text) { return {.text = text}; }
    [[nodiscard]] static Clip ofImage(const QByteArray &image) { return {.image = image}; }

    /// What lists show and searches look through.
    [[nodiscard]] QString label() const { return text.value_or(QStringLiteral("Copied image")); }
    [[nodiscard]] bool isImage() const { return !text && image; }

    bool operator==(const Clip &) const = default;
};

} // namespace perchly

#include "SessionMetadata.h"

#include "RouteStreams.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace perchly {

namespace {

const QByteArray targetKey = QByteArrayLiteral("target.object");
const QByteArray rememberedKey = QByteArrayLiteral("target.node");
const QByteArray defaultKey = QByteArrayLiteral("default.audio.sink");
const QByteArray chosenDefaultKey = QByteArrayLiteral("default.configured.audio.sink");

QString nameIn(const char *json) {
    return QJsonDocument::fromJson(QByteArray(json))
        .object()
        .value(QLatin1String("name"))
        .toString();
}

} // namespace

bool SessionMetadata::isDescribedBy(const spa_dict &properties) {
    const char *name = spa_dict_lookup(&properties, PW_KEY_METADATA_NAME);
    return name != nullptr && QByteArrayView(name) == QByteArrayView("default");
}

void SessionMetadata::bind(pw_registry *registry, std::uint32_t id) {
    void *bound =
        pw_registry_bind(registry, id, PW_TYPE_INTERFACE_Metadata, PW_VERSION_METADATA, 0);
    m_proxy.reset(static_cast<pw_proxy *>(bound));
    m_id = id;
    if (bound != nullptr) {
        m_listener = {};
        pw_metadata_add_listener(static_cast<pw_metadata *>(bound), &m_listener, &events, this);
    }
}

void SessionMetadata::unbind() {
    m_proxy.reset();
    m_targets.clear();
    m_remembered.clear();
    m_chosenDefault.reset();
    m_isOwnChosen = false;
    if (!std::exchange(m_defaultOutput, QString()).isEmpty()) {
        Q_EMIT defaultOutputChanged();
    }
}

std::optional<StreamTarget> SessionMetadata::target(std::uint32_t node) const {
    const auto found = m_targets.constFind(node);
    return found == m_targets.cend() ? std::nullopt : std::optional(*found);
}

std::optional<std::uint32_t> SessionMetadata::rememberedNode(std::uint32_t node) const {
    bool isNumber = false;
    const std::uint32_t remembered = m_remembered.value(node).toUInt(&isNumber);
    return isNumber ? std::optional(remembered) : std::nullopt;
}

void SessionMetadata::setTarget(std::uint32_t node, const std::optional<StreamTarget> &target) {
    write(node, targetKey, target);
}

void SessionMetadata::remember(std::uint32_t node, std::uint32_t output) {
    // Cleared first: the session manager ignores a value that is already set.
    write(node, rememberedKey, std::nullopt);
    write(node, rememberedKey,
          StreamTarget{QByteArrayLiteral("Spa:Id"), QByteArray::number(output)});
}

void SessionMetadata::restoreDefaultOutput() {
    if (isBound() && m_isOwnChosen) {
        write(PW_ID_CORE, chosenDefaultKey, m_chosenDefault);
    }
}

void SessionMetadata::write(std::uint32_t subject, const QByteArray &key,
                            const std::optional<StreamTarget> &entry) {
    pw_metadata_set_property(reinterpret_cast<pw_metadata *>(m_proxy.get()), subject,
                             key.constData(), entry ? entry->type.constData() : nullptr,
                             entry ? entry->value.constData() : nullptr);
}

void SessionMetadata::forget(std::uint32_t node) {
    m_targets.remove(node);
    m_remembered.remove(node);
}

int SessionMetadata::onProperty(void *data, std::uint32_t subject, const char *key,
                                const char *type, const char *value) {
    // A null key means that all keys were removed.
    auto &self = *static_cast<SessionMetadata *>(data);
    for (const QByteArray &known : {targetKey, rememberedKey, defaultKey, chosenDefaultKey}) {
        if (key == nullptr || known == key) {
            self.read(subject, known, type, value);
        }
    }
    return 0;
}

void SessionMetadata::read(std::uint32_t subject, const QByteArray &key, const char *type,
                           const char *value) {
    if ((key == defaultKey || key == chosenDefaultKey) && subject != PW_ID_CORE) {
        return;
    }
    if (key == defaultKey) {
        const QString name = nameIn(value);
        if (std::exchange(m_defaultOutput, name) != name) {
            Q_EMIT defaultOutputChanged();
        }
    } else if (key == chosenDefaultKey) {
        m_isOwnChosen = nameIn(value).startsWith(RouteStreams::namePrefix);
        if (!m_isOwnChosen) {
            m_chosenDefault =
                value == nullptr ? std::nullopt : std::optional(StreamTarget{type, value});
        }
    } else if (key == rememberedKey) {
        m_remembered.insert(subject, QByteArray(value));
    } else {
        if (value == nullptr) {
            m_targets.remove(subject);
        } else {
            m_targets.insert(subject, {QByteArray(type), QByteArray(value)});
        }
        Q_EMIT targetChanged(subject);
    }
}

} // namespace perchly

#pragma once

#include "PipeWireHandles.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>

#include <pipewire/extensions/metadata.h>

#include <optional>

namespace perchly {

/// The target of a stream, in the session manager's terms.
struct StreamTarget {
    QByteArray type;
    QByteArray value;

    friend bool operator==(const StreamTarget &, const StreamTarget &) = default;
};

/// The session manager's table of stream targets and the default output. Main thread only; signals
/// come from within a callback of the connection.
class SessionMetadata : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Whether these properties are the table's.
    [[nodiscard]] static bool isDescribedBy(const spa_dict &properties);

    void bind(pw_registry *registry, std::uint32_t id);
    void unbind();
    [[nodiscard]] bool isBound() const { return m_proxy != nullptr; }
    [[nodiscard]] std::uint32_t id() const { return m_id; }

    /// Where the stream was sent explicitly; nullopt if the session manager decides.
    [[nodiscard]] std::optional<StreamTarget> target(std::uint32_t node) const;
    /// The node that the session manager remembers for the stream, if any.
    [[nodiscard]] std::optional<std::uint32_t> rememberedNode(std::uint32_t node) const;
    /// nullopt lets the session manager decide. Needs a table.
    void setTarget(std::uint32_t node, const std::optional<StreamTarget> &target);
    /// Makes the session manager remember an output for the stream's program. It forgets that
    /// whenever a target is set. Needs a table.
    void remember(std::uint32_t node, std::uint32_t output);
    /// Drops the entries of a stream that has gone.
    void forget(std::uint32_t node);

    /// The node's name, or empty.
    [[nodiscard]] QString defaultOutput() const { return m_defaultOutput; }
    /// If one of our sinks was chosen as the default, restores the previous choice.
    void restoreDefaultOutput();

Q_SIGNALS:
    void targetChanged(std::uint32_t node);
    void defaultOutputChanged();

private:
    static int onProperty(void *data, std::uint32_t subject, const char *key, const char *type,
                          const char *value);
    void read(std::uint32_t subject, const QByteArray &key, const char *type, const char *value);
    void write(std::uint32_t subject, const QByteArray &key,
               const std::optional<StreamTarget> &entry);

    static constexpr pw_metadata_events events{.version = PW_VERSION_METADATA_EVENTS,
                                               .property = onProperty};

    ProxyPointer m_proxy;
    spa_hook m_listener{};
    std::uint32_t m_id = 0;
    QHash<std::uint32_t, StreamTarget> m_targets;
    QHash<std::uint32_t, QByteArray> m_remembered;
    QString m_defaultOutput;
    std::optional<StreamTarget> m_chosenDefault; ///< by the user, so never one of our sinks
    bool m_isOwnChosen = false;
};

} // namespace perchly

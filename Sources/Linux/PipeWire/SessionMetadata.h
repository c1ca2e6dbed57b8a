#pragma once

#include "PipeWireHandles.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>

#include <pipewire/extensions/metadata.h>

#include <optional>

namespace perchly {

/// Where a stream goes, as the session manager names a device.
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

    /// Whether these are the table's properties.
    [[nodiscard]] static bool isDescribedBy(const spa_dict &properties);

    void bind(pw_registry *registry, std::uint32_t id);
    void unbind();
    [[nodiscard]] bool isBound() const { return m_proxy != nullptr; }
    [[nodiscard]] std::uint32_t id() const { return m_id; }

    /// Where somebody has sent the stream; nothing when the session manager decides.
    [[nodiscard]] std::optional<StreamTarget> target(std::uint32_t node) const;
    /// The node that the session manager remembers for the stream, if any.
    [[nodiscard]] std::optional<std::uint32_t> rememberedNode(std::uint32_t node) const;
    /// Nothing lets the session manager decide. Needs a table.
    void setTarget(std::uint32_t node, const std::optional<StreamTarget> &target);
    /// Makes the session manager remember an output for the stream's program, which it forgets
    /// whenever a target is set. Needs a table.
    void remember(std::uint32_t node, std::uint32_t output);
    /// Drops the entries of a stream that has gone.
    void forget(std::uint32_t node);

    /// The node's name; empty when there is none.
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
    std::optional<StreamTarget> m_chosenDefault; ///< by the user; never one of our sinks
    bool m_isOwnChosen = false;
};

} // namespace perchly

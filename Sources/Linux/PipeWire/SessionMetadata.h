#pragma once

#include "PipeWireHandles.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>

#include <pipewire/extensions/metadata.h>

#include <optional>

namespace perchly {

/// Where a stream goes: the session manager's way of naming a device.
struct StreamTarget {
    QByteArray type;
    QByteArray value;

    friend bool operator==(const StreamTarget &, const StreamTarget &) = default;
};

/// The session manager's table of where streams were told to go and which output is the default.
/// Main thread only; signals come from within a callback of the connection.
class SessionMetadata : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Whether these properties are those of the table.
    [[nodiscard]] static bool isDescribedBy(const spa_dict &properties);

    void bind(pw_registry *registry, std::uint32_t id);
    void unbind();
    [[nodiscard]] bool isBound() const { return m_proxy != nullptr; }
    [[nodiscard]] std::uint32_t id() const { return m_id; }

    /// Where somebody has sent the stream; nothing when it goes by itself.
    [[nodiscard]] std::optional<StreamTarget> target(std::uint32_t node) const;
    /// The number of the node that the session manager remembers for the stream, if any.
    [[nodiscard]] std::optional<std::uint32_t> rememberedNode(std::uint32_t node) const;
    /// Nothing lets the stream go by itself. Needs a table.
    void setTarget(std::uint32_t node, const std::optional<StreamTarget> &target);
    /// Has the session manager remember an output for programs like the stream's, whose target does
    /// not name it: it forgets what it knew whenever a target is set. Needs a table.
    void remember(std::uint32_t node, std::uint32_t output);
    /// A stream has gone, with what the table said about it.
    void forget(std::uint32_t node);

    /// The node's name; empty when there is none.
    [[nodiscard]] QString defaultOutput() const { return m_defaultOutput; }
    /// When somebody has chosen one of our own sinks as the default: puts back what was chosen
    /// before.
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
    std::optional<StreamTarget> m_chosenDefault; ///< by the person; never a sink of ours
    bool m_isOwnChosen = false;
};

} // namespace perchly

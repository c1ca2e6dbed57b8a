#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

struct sd_bus;
struct sd_bus_message;
struct sd_bus_slot;

namespace perchly {

struct BusRelease {
    void operator()(sd_bus *bus) const;
    void operator()(sd_bus_slot *slot) const;
};

/// Destroying it takes back what it stands for: a match, or a call whose answer is not wanted.
using BusSlot = std::unique_ptr<sd_bus_slot, BusRelease>;

/// A connection of its own to a bus, served by the event loop. It never blocks:
/// connecting and everything else goes on as the bus answers. Matches are narrow, so that a busy
/// bus does not wake the program up. Main thread only.
class BusLoop : public QObject {
    Q_OBJECT
public:
    enum class Bus { Session, System };
    using Handler = std::function<void(sd_bus_message *message)>;

    explicit BusLoop(QObject *parent = nullptr);
    ~BusLoop() override;

    /// False when there is no bus.
    [[nodiscard]] bool open(Bus which = Bus::Session);

    /// Calls the handler with every signal that the rule matches, as long as the slot exists.
    [[nodiscard]] BusSlot match(const char *rule, const Handler &handler);

    /// Calls a method with one string, or none when `argument` is null, and the handler once with
    /// its answer; not on failure nor after the limit.
    [[nodiscard]] BusSlot call(const char *destination, const char *path, const char *interface,
                               const char *method, const char *argument, const Handler &handler,
                               std::chrono::microseconds limit = std::chrono::seconds(1));

Q_SIGNALS:
    /// The bus has gone; nothing more comes from it.
    void lost();

private:
    void process();
    void arm();

    std::unique_ptr<sd_bus, BusRelease> m_bus;
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<QSocketNotifier> m_writable;
    QTimer m_timer;
};

} // namespace perchly

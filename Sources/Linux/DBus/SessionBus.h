#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace perchly {

/// A connection to the session bus that reconnects when the bus restarts. Never waits for a bus
/// that does not answer, except in answers(). Main thread only.
class SessionBus : public QObject {
    Q_OBJECT
public:
    /// Whether there is a session bus that accepts us and answers within the timeout. Any thread,
    /// also without an application object; takes about a millisecond if the bus answers.
    [[nodiscard]] static bool answers(std::chrono::milliseconds timeout);

    /// Connects if the bus has just answered, else later. `name` is the connection's, unique in
    /// this process.
    explicit SessionBus(QString name, bool hasAnswered = answers(std::chrono::seconds(1)));
    ~SessionBus() override;

    [[nodiscard]] bool isConnected() const { return connection().isConnected(); }
    /// Behaves like an empty bus while not connected.
    [[nodiscard]] QDBusConnection connection() const { return QDBusConnection(m_name); }

Q_SIGNALS:
    /// Not emitted for a connection made by the constructor.
    void connected();
    void lost();

private Q_SLOTS:
    void onDisconnected();

private:
    void onAnswer(bool answered);
    void retry();

    QString m_name;
    QTimer m_retry;
    int m_failures = 0;
};

} // namespace perchly

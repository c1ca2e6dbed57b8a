#include "DBusSingleInstance.h"

#include "ApplicationAdaptor.h"

#include <QDBusMessage>
#include <QElapsedTimer>

#include <cstdio>

namespace perchly {

namespace {

const QString ourName = QStringLiteral("org.perchly.Perchly");
const QString objectPath = QStringLiteral("/org/perchly/Perchly");
const QString busName = QStringLiteral("org.freedesktop.DBus");

constexpr int busTimeout = 1000; // milliseconds; with the next one at most two seconds
constexpr int instanceTimeout = 1000;
constexpr std::chrono::milliseconds lockPatience{500}; // the name is free before the lock

} // namespace

DBusSingleInstance::DBusSingleInstance(std::optional<QDBusConnection> bus, QObject *parent)
    : SingleInstance(parent)
    , m_bus(std::move(bus)) {
    auto *adaptor = new ApplicationAdaptor(this);
    connect(adaptor, &ApplicationAdaptor::requested, this, &SingleInstance::requested);
}

DBusSingleInstance::~DBusSingleInstance() {
    m_lock.reset(); // whoever gets the name wants it next
    if (m_bus) {
        m_bus->unregisterObject(objectPath);
        m_bus->send(QDBusMessage::createMethodCall(busName, QStringLiteral("/org/freedesktop/DBus"),
                                                   busName, QStringLiteral("ReleaseName"))
                    << ourName);
    }
}

bool DBusSingleInstance::claim() {
    if (!m_bus || !m_bus->isConnected()) {
        m_bus.reset();
        return claimLock();
    }
    // The object first: a call may follow the name at once.
    m_bus->registerObject(objectPath, this);
    for (int attempt = 0; attempt < 3; ++attempt) {
        switch (requestName()) {
        case Name::Ours:
            return claimLock(lockPatience);
        case Name::NotToBeHad:
            m_bus.reset();
            return claimLock();
        case Name::Taken:
            if (activateOther()) {
                return false;
            }
        }
    }
    return false;
}

DBusSingleInstance::Name DBusSingleInstance::requestName() {
    constexpr uint doNotQueue = 4;
    constexpr uint primaryOwner = 1;
    constexpr uint exists = 3;
    constexpr uint alreadyOwner = 4;
    // Asked directly, since the library's own call would wait for up to 25 seconds.
    QDBusMessage call = QDBusMessage::createMethodCall(
        busName, QStringLiteral("/org/freedesktop/DBus"), busName, QStringLiteral("RequestName"));
    call << ourName << doNotQueue;
    const QDBusMessage reply = m_bus->call(call, QDBus::Block, busTimeout);
    const uint result =
        reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0).toUInt() : 0;
    if (result == exists) {
        return Name::Taken;
    }
    return result == primaryOwner || result == alreadyOwner ? Name::Ours : Name::NotToBeHad;
}

bool DBusSingleInstance::activateOther() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        ourName, objectPath, QStringLiteral("org.freedesktop.Application"),
        QStringLiteral("Activate"));
    call << QVariantMap();
    call.setAutoStartService(false);
    QElapsedTimer waited;
    waited.start();
    const QDBusMessage reply = m_bus->call(call, QDBus::Block, instanceTimeout);
    if (reply.type() == QDBusMessage::ReplyMessage) {
        return true;
    }
    // An error before the time is up means that it was just ending: its name can be had now.
    if (!waited.hasExpired(instanceTimeout - 100)) {
        return false;
    }
    if (requestName() == Name::Ours) {
        return false; // it took long to end
    }
    std::fprintf(stderr, "perchly: another instance is running, but it does not answer: %s\n",
                 qPrintable(reply.errorMessage()));
    return true;
}

bool DBusSingleInstance::claimLock(std::chrono::milliseconds patience) {
    m_lock.emplace(LockedInstance::defaultFolder());
    connect(&*m_lock, &LockedInstance::requested, this,
            [this] { Q_EMIT requested(QStringLiteral("show")); });
    return m_lock->claim(patience);
}

} // namespace perchly

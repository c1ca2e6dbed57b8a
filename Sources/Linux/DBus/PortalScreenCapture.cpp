#include "PortalScreenCapture.h"

#include "PortalRequest.h"

#include <QFile>
#include <QPointer>
#include <QSaveFile>
#include <QUrl>

#include <cstdlib>

namespace perchly {

namespace {

constexpr std::chrono::minutes answerTimeout{2}; // the shelf does not open by hovering meanwhile

/// Returns the exit status of the capture.
int copyPrivately(const QString &from, const QString &to) {
    QFile source(from);
    QSaveFile target(to);
    const bool done = source.open(QIODevice::ReadOnly) && target.open(QIODevice::WriteOnly) &&
                      target.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) &&
                      target.write(source.readAll()) > 0 && target.commit();
    return done ? EXIT_SUCCESS : EXIT_FAILURE;
}

class PortalCapture : public ScheduledTask {
public:
    PortalCapture(const QDBusConnection &bus, Workers &workers, const QString &path,
                  ScreenCapture::Completion completion)
        : m_completion(std::move(completion))
        , m_request(
              bus, QStringLiteral("Screenshot"), QStringLiteral("Screenshot"), {QString()},
              {{QStringLiteral("interactive"), true}},
              [this, &workers, path](PortalRequest::Response response, const QVariantMap &results) {
                  const bool failed = response >= PortalRequest::Ended;
                  finish(workers, path, failed ? EXIT_FAILURE : EXIT_SUCCESS, results);
              },
              answerTimeout) {}

private:
    void finish(Workers &workers, const QString &path, int status, const QVariantMap &results) {
        const QUrl file(results.value(QStringLiteral("uri")).toString());
        const auto report = [guard = QPointer(&m_request), this](int result) {
            if (guard) {
                const auto completion = std::move(m_completion); // it may destroy this object
                completion(result);
            }
        };
        if (file.isLocalFile()) {
            workers.run([from = file.toLocalFile(), path] { return copyPrivately(from, path); },
                        report);
        } else {
            report(status);
        }
    }

    ScreenCapture::Completion m_completion;
    PortalRequest m_request;
};

} // namespace

PortalScreenCapture::PortalScreenCapture(std::shared_ptr<SessionBus> bus)
    : m_bus(std::move(bus)) {}

Task PortalScreenCapture::captureRegion(const QString &path, Completion completion) {
    return std::make_unique<PortalCapture>(m_bus->connection(), m_workers, path,
                                           std::move(completion));
}

} // namespace perchly

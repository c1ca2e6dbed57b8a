#include "Capture.h"

#include "PreferenceKeys.h"
#include "Preferences.h"
#include "ScreenCapture.h"
#include "ShellActions.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QThreadPool>
#include <QUuid>

#include <unistd.h>

namespace perchly {

using namespace std::chrono_literals;

namespace {

/// Time for other programs to redraw the areas that our windows covered.
constexpr auto redrawTime = 80ms;

QString newCaptureFile() {
    return QDir::tempPath() + QStringLiteral("/Perchly-") +
           QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper() + QStringLiteral(".png");
}

} // namespace

Capture::Capture(ScreenCapture &capture, Clock &clock, ShellActions &shell, QObject *parent)
    : QObject(parent)
    , m_capture(capture)
    , m_clock(clock)
    , m_shell(shell) {}

void Capture::removeOld(const Preferences &preferences) {
    if (!preferences.isComplete()) {
        return;
    }
    const QByteArray stored = preferences.data(keys::launchGroups).value_or(QByteArray()) +
                              preferences.data(keys::pinnedSnippets).value_or(QByteArray()) +
                              preferences.string(keys::quickNote).value_or(QString()).toUtf8();
    QThreadPool::globalInstance()->start([stored] {
        static const QRegularExpression ownName(
            QStringLiteral("^Perchly-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\.png$"));
        const auto dayAgo = QDateTime::currentDateTime().addDays(-1);
        const auto files = QDir::temp().entryInfoList({QStringLiteral("Perchly-*.png")},
                                                      QDir::Files | QDir::NoSymLinks);
        for (const QFileInfo &file : files) {
            if (ownName.match(file.fileName()).hasMatch() && file.ownerId() == ::geteuid() &&
                file.lastModified() < dayAgo && !stored.contains(file.fileName().toLatin1())) {
                QFile::remove(file.filePath());
            }
        }
    });
}

void Capture::start() {
    if (m_active) {
        return;
    }
    setActive(true);
    setError({});
    m_shell.clearScreen();
    m_step = m_clock.after(redrawTime, [this, path = newCaptureFile()] {
        m_step = m_capture.captureRegion(path, [this, path](int status) { end(path, status); });
    });
}

void Capture::end(const QString &path, int status) {
    const Task ended = std::move(m_step);
    setActive(false);
    if (QFile::exists(path)) {
        Q_EMIT captured(QUrl::fromLocalFile(path));
    } else if (status != 0) {
        setError(tr("The screen could not be captured."));
    }
    m_shell.showTools();
}

void Capture::setActive(bool active) {
    m_active = active;
    Q_EMIT activeChanged();
}

void Capture::setError(const QString &error) {
    m_error = error;
    Q_EMIT errorChanged();
}

} // namespace perchly

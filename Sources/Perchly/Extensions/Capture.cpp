// A part of the screen, captured into the tray.

#include "Hosts.h"
#include "Productivity.h"
#include "ShelfExtras.h"
#include "ShellActions.h"

#include <QDir>
#include <QFile>
#include <QPointer>
#include <QUuid>

namespace perchly {

using namespace std::chrono_literals;

namespace {

/// What stood behind the hidden windows is drawn again within this time.
constexpr auto redrawTime = 80ms;

QString newCaptureFile() {
    return QDir::tempPath() + QStringLiteral("/Perchly-") +
           QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper() + QStringLiteral(".png");
}

} // namespace

void ShelfExtras::screenshot(Productivity *productivity) {
    if (m_capturing) {
        return;
    }
    setCapturing(true);
    setError({});
    if (m_shell != nullptr) {
        m_shell->clearScreen();
    }
    m_capture = m_hosts.clock->after(
        redrawTime, [this, path = newCaptureFile(), guard = QPointer(productivity)] {
            m_capture = m_hosts.screenCapture->captureRegion(
                path, [this, path, guard](int status) { endCapture(path, status, guard); });
        });
}

void ShelfExtras::endCapture(const QString &path, int status, Productivity *productivity) {
    const Task ended = std::move(m_capture);
    setCapturing(false);
    if (QFile::exists(path)) {
        if (productivity != nullptr) {
            productivity->hold({QUrl::fromLocalFile(path)});
        }
        setSection(QStringLiteral("Files"));
    } else if (status != 0) {
        setError(QStringLiteral("Capture cancelled or unavailable. Check Screen Recording "
                                "permission if capture fails."));
    }
    if (m_shell != nullptr) {
        m_shell->showTools();
    }
}

void ShelfExtras::setCapturing(bool capturing) {
    m_capturing = capturing;
    Q_EMIT capturingChanged();
}

void ShelfExtras::setError(const QString &error) {
    if (error != m_error) {
        m_error = error;
        Q_EMIT errorChanged();
    }
}

} // namespace perchly

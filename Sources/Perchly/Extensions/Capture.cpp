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
#include <QUrl>

#include <unistd.h>

namespace perchly {

using namespace std::chrono_literals;

namespace {

/// Time for other programs to redraw the areas that our windows covered.
constexpr auto redrawTime = 80ms;

/// Named after the program in every language, so that removeOld() recognises it.
QString newCaptureFile() {
    const QDateTime now = QDateTime::currentDateTime();
    const QString name = QDir::tempPath() + now.toString(u"'/Perchly 'yyyy-MM-dd HH-mm-ss");
    QString path = name + QStringLiteral(".png");
    for (int number = 2; QFile::exists(path); ++number) {
        path = QStringLiteral("%1 %2.png").arg(name).arg(number);
    }
    return path;
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
        static const QRegularExpression ownName(QStringLiteral(
            "^Perchly(-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}" // by older versions
            "| \\d{4}(-\\d\\d){2} \\d\\d(-\\d\\d){2}( \\d+)?)\\.png$"));
        const auto dayAgo = QDateTime::currentDateTime().addDays(-1);
        const auto files = QDir::temp().entryInfoList({QStringLiteral("Perchly*.png")},
                                                      QDir::Files | QDir::NoSymLinks);
        for (const QFileInfo &file : files) {
            const QByteArray name = file.fileName().toLatin1();
            const QByteArray encoded = QUrl::toPercentEncoding(file.fileName());
            if (ownName.match(file.fileName()).hasMatch() && file.ownerId() == ::geteuid() &&
                file.lastModified() < dayAgo && !stored.contains(name) &&
                !stored.contains(encoded)) {
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

#pragma once

#include "QuickLook.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QProcess>
#include <QString>

namespace perchly {

/// Controls the companion that shows the preview window, with lines of JSON on its stdin. The
/// companion starts when there is something to show, and ends with this program or some time after
/// its window was closed.
class ProcessQuickLook : public QuickLook {
public:
    /// Takes the companion's absolute path, empty if it is not installed.
    explicit ProcessQuickLook(QString program);
    ~ProcessQuickLook() override;

    void look(const QList<QUrl> &items, qsizetype index) override;

private:
    void send();

    QString m_program;
    QByteArray m_request;
    QElapsedTimer m_age; ///< of the last request
    QProcess m_process;
};

} // namespace perchly

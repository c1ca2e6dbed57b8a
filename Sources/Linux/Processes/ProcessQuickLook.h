#pragma once

#include "QuickLook.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QProcess>
#include <QString>

namespace perchly {

/// Talks to the companion that has the preview's window, in lines of JSON on its input. The
/// companion is started when there is something to show, and ends with this program, or some time
/// after its window was closed.
class ProcessQuickLook : public QuickLook {
public:
    /// The companion's absolute path; empty when there is none.
    explicit ProcessQuickLook(QString program);
    ~ProcessQuickLook() override;

    void look(const QList<QUrl> &items, qsizetype index) override;

private:
    void send();

    QString m_program;
    QByteArray m_request;
    QElapsedTimer m_age; ///< of the request
    QProcess m_process;
};

} // namespace perchly

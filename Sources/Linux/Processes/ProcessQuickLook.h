#pragma once

#include "QuickLook.h"

#include <QProcess>
#include <QString>

namespace perchly {

/// Talks to the companion that has the preview's window. It is started when there is something to
/// show, tells what to show in lines of JSON on its input, and ends by itself some time after its
/// window was closed, when it fails, or with this program.
class ProcessQuickLook : public QuickLook {
public:
    /// The companion's absolute path; empty when there is none.
    explicit ProcessQuickLook(QString program);
    ~ProcessQuickLook() override;

    void look(const QList<QUrl> &items, qsizetype index, Manner manner) override;

private:
    QString m_program;
    QProcess m_process;
};

} // namespace perchly

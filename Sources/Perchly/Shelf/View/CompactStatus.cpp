#include "CompactStatus.h"

namespace perchly {

void CompactStatus::setModel(ShelfModel *model) {
    m_model = model;
    if (m_model) {
        for (const auto signal : {&ShelfModel::secondsChanged, &ShelfModel::runningChanged,
                                  &ShelfModel::mediaChanged, &ShelfModel::activityChanged}) {
            connect(m_model, signal, this, &CompactStatus::refresh);
        }
    }
    refresh();
}

void CompactStatus::setProductivity(Productivity *productivity) {
    m_productivity = productivity;
    if (m_productivity) {
        connect(m_productivity->shortcuts(), &Shortcuts::busyChanged, this,
                &CompactStatus::refresh);
        connect(m_productivity->held(), &HeldFiles::changed, this, &CompactStatus::refresh);
    }
    refresh();
}

QString CompactStatus::sentence() const {
    return m_look.title + QStringLiteral(" · ") + m_look.status;
}

void CompactStatus::refresh() {
    if (!m_model || !m_productivity) {
        return;
    }
    const Media &media = m_model->media();
    const QString time = minutesAndSeconds(m_model->seconds());
    const CompactLook look = compactLook({.busyShortcut = m_productivity->shortcuts()->busy(),
                                          .timerRuns = m_model->running(),
                                          .isBreak = m_model->isBreak(),
                                          .seconds = m_model->seconds(),
                                          .musicActive = media.active,
                                          .playing = media.playing,
                                          .musicTitle = media.title,
                                          .held = m_productivity->held()->count(),
                                          .activity = m_model->activity()});
    if (time != m_time || look != m_look) {
        m_time = time;
        m_look = look;
        Q_EMIT changed();
    }
}

} // namespace perchly

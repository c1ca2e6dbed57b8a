#include "CompactStatus.h"

namespace perchly {

void CompactStatus::setModel(ShelfModel *model) {
    if (m_model == model) {
        return;
    }
    if (m_model) {
        m_model->disconnect(this);
    }
    m_model = model;
    if (m_model) {
        for (const auto signal : {&ShelfModel::secondsChanged, &ShelfModel::runningChanged,
                                  &ShelfModel::musicActiveChanged, &ShelfModel::playingChanged,
                                  &ShelfModel::musicTitleChanged, &ShelfModel::activityChanged}) {
            connect(m_model, signal, this, &CompactStatus::refresh);
        }
    }
    Q_EMIT modelChanged();
    refresh();
}

void CompactStatus::setProductivity(Productivity *productivity) {
    if (m_productivity == productivity) {
        return;
    }
    if (m_productivity) {
        m_productivity->disconnect(this);
    }
    m_productivity = productivity;
    if (m_productivity) {
        connect(m_productivity, &Productivity::busyShortcutChanged, this, &CompactStatus::refresh);
        connect(m_productivity, &Productivity::heldChanged, this, &CompactStatus::refresh);
    }
    Q_EMIT productivityChanged();
    refresh();
}

void CompactStatus::refresh() {
    const ShelfModel *const shelf = m_model;
    const Productivity *const workspace = m_productivity;
    if (shelf == nullptr || workspace == nullptr) {
        return;
    }
    assign(m_time, minutesAndSeconds(shelf->seconds()), &CompactStatus::timeChanged);
    const CompactLook look = compactLook({.busyShortcut = workspace->busyShortcut(),
                                          .timerRuns = shelf->running(),
                                          .seconds = shelf->seconds(),
                                          .musicActive = shelf->musicActive(),
                                          .playing = shelf->playing(),
                                          .musicTitle = shelf->musicTitle(),
                                          .held = workspace->held().size(),
                                          .activity = shelf->activity()});
    assign(m_look.symbol, look.symbol, &CompactStatus::symbolChanged);
    assign(m_look.status, look.status, &CompactStatus::statusChanged);
    assign(m_look.title, look.title, &CompactStatus::titleChanged);
    assign(m_sentence, look.title + QStringLiteral(" · ") + look.status,
           &CompactStatus::sentenceChanged);
}

void CompactStatus::assign(QString &field, const QString &value, void (CompactStatus::*changed)()) {
    if (field != value) {
        field = value;
        Q_EMIT(this->*changed)();
    }
}

} // namespace perchly

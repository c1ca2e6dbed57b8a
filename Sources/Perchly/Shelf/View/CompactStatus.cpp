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
    assign(m_time,
           QStringLiteral("%1:%2")
               .arg(shelf->seconds() / 60, 2, 10, QLatin1Char('0'))
               .arg(shelf->seconds() % 60, 2, 10, QLatin1Char('0')),
           &CompactStatus::timeChanged);

    if (!workspace->busyShortcut().isNull()) {
        show(QStringLiteral("bolt.fill"), QStringLiteral("Running"), workspace->busyShortcut());
    } else if (shelf->running()) {
        show(QStringLiteral("timer"), m_time, QStringLiteral("Focus"));
    } else if (shelf->musicActive()) {
        const bool playing = shelf->playing();
        show(playing ? QStringLiteral("waveform") : QStringLiteral("pause.fill"),
             playing ? QStringLiteral("Playing") : QStringLiteral("Paused"), shelf->musicTitle());
    } else if (const auto held = workspace->held().size(); held > 0) {
        show(QStringLiteral("tray.fill"), QStringLiteral("%1 held").arg(held),
             QStringLiteral("File shelf"));
    } else {
        const QString complete = QStringLiteral("Focus complete");
        const bool done = shelf->activity() == complete;
        show(QStringLiteral("square.stack.3d.up.fill"),
             done ? QStringLiteral("Done") : QStringLiteral("Ready"),
             done ? complete : QStringLiteral("Perchly"));
    }
}

void CompactStatus::show(const QString &symbol, const QString &status, const QString &title) {
    assign(m_symbol, symbol, &CompactStatus::symbolChanged);
    assign(m_status, status, &CompactStatus::statusChanged);
    assign(m_title, title, &CompactStatus::titleChanged);
    assign(m_sentence, title + QStringLiteral(" · ") + status, &CompactStatus::sentenceChanged);
}

void CompactStatus::assign(QString &field, const QString &value, void (CompactStatus::*changed)()) {
    if (field != value) {
        field = value;
        Q_EMIT(this->*changed)();
    }
}

} // namespace perchly

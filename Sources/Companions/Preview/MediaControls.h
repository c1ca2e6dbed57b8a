#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QSlider>
#include <QWidget>

namespace perchly {

/// A round button that plays or pauses.
class PlayButton : public QAbstractButton {
    Q_OBJECT
public:
    explicit PlayButton(QWidget *parent = nullptr);

    void setPlaying(bool playing);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool m_playing = false;
};

/// The button, where playing has got to, and the time.
class MediaControls : public QWidget {
    Q_OBJECT
public:
    explicit MediaControls(QWidget *parent = nullptr);

    void setPlaying(bool playing) { m_button.setPlaying(playing); }
    /// Both in milliseconds; a duration of 0 is not known.
    void setProgress(qint64 position, qint64 duration);

Q_SIGNALS:
    void toggled();
    void sought(qint64 position);

private:
    PlayButton m_button;
    QSlider m_slider;
    QLabel m_time;
};

} // namespace perchly

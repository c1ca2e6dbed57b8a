#pragma once

#include <QImage>
#include <QWidget>

namespace perchly {

/// A picture as large as there is room, never larger than it is.
class PictureView : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    void show(const QImage &picture);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_picture;
    QImage m_shown; ///< scaled to the room that there was last
};

} // namespace perchly

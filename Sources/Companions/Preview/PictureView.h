#pragma once

#include <QImage>
#include <QWidget>

namespace perchly {

/// A picture, scaled down to fit but never up.
class PictureView : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    void show(const QImage &picture);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_picture;
    QImage m_shown; ///< scaled to the last size
};

} // namespace perchly

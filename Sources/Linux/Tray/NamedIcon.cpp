#include "NamedIcon.h"

#include <QIconEngine>
#include <QPainter>

namespace perchly {

namespace {

class NamedIconEngine : public QIconEngine {
public:
    NamedIconEngine(const QString &name, const QIcon &picture)
        : m_name(name)
        , m_picture(picture) {}

    QString iconName() override { return m_name; }

    void paint(QPainter *painter, const QRect &area, QIcon::Mode mode,
               QIcon::State state) override {
        m_picture.paint(painter, area, Qt::AlignCenter, mode, state);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        return m_picture.pixmap(size, 1.0, mode, state);
    }

    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
        return m_picture.availableSizes(mode, state);
    }

    QIconEngine *clone() const override { return new NamedIconEngine(*this); }

private:
    QString m_name;
    QIcon m_picture;
};

} // namespace

QIcon namedIcon(const QString &name, const QIcon &picture) {
    return QIcon(new NamedIconEngine(name, picture));
}

} // namespace perchly

#include "RowOrder.h"

#include <QQmlContext>
#include <QQmlProperty>

#include <algorithm>

namespace perchly {

RowOrder::RowOrder(QObject *parent)
    : QObject(parent) {
    m_soon.setSingleShot(true);
    m_soon.setInterval(0);
    connect(&m_soon, &QTimer::timeout, this, &RowOrder::sort);
    QAccessible::installActivationObserver(this);
}

RowOrder::~RowOrder() {
    QAccessible::removeActivationObserver(this);
}

void RowOrder::setRows(QQuickItem *rows) {
    if (m_rows == rows) {
        return;
    }
    if (m_rows) {
        m_rows->disconnect(this);
    }
    m_rows = rows;
    if (rows != nullptr) {
        connect(rows, &QQuickItem::childrenChanged, this, &RowOrder::watch);
        connect(rows, &QQuickItem::yChanged, this, &RowOrder::watch); // scrolled
        watch();
    }
    Q_EMIT rowsChanged();
}

void RowOrder::accessibilityActiveChanged(bool active) {
    if (active) {
        watch();
    }
}

void RowOrder::watch() {
    if (!m_rows || !QAccessible::isActive()) {
        return;
    }
    for (const QQuickItem *row : m_rows->childItems()) {
        connect(row, &QQuickItem::yChanged, &m_soon, qOverload<>(&QTimer::start),
                Qt::UniqueConnection);
    }
    m_soon.start();
}

void RowOrder::sort() {
    if (!m_rows) {
        return;
    }
    const auto isAbove = [](const QQuickItem *one, const QQuickItem *other) {
        return one->y() < other->y();
    };
    QList<QQuickItem *> rows = m_rows->childItems();
    for (QQuickItem *row : std::as_const(rows)) {
        QQmlProperty::write(row, QStringLiteral("Accessible.ignored"),
                            row->property("hiddenFromReaders").toBool(), qmlContext(row));
    }
    if (std::is_sorted(rows.cbegin(), rows.cend(), isAbove)) {
        return;
    }
    std::stable_sort(rows.begin(), rows.end(), isAbove);
    for (qsizetype place = 1; place < rows.size(); ++place) {
        rows[place]->stackAfter(rows[place - 1]);
    }
}

} // namespace perchly

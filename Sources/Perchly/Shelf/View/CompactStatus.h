#pragma once

#include "CompactLook.h"
#include "Productivity.h"
#include "ShelfModel.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// The collapsed shelf's text: the most important activity, as a symbol, a word and a title. Set
/// each of the two stores once; until both are set, everything is empty.
class CompactStatus : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(perchly::ShelfModel *model READ model WRITE setModel NOTIFY changed REQUIRED FINAL)
    Q_PROPERTY(perchly::Productivity *productivity READ productivity WRITE setProductivity NOTIFY
                   changed REQUIRED FINAL)
    Q_PROPERTY(QString time READ time NOTIFY changed FINAL)
    Q_PROPERTY(QString symbol READ symbol NOTIFY changed FINAL)
    Q_PROPERTY(QString status READ status NOTIFY changed FINAL)
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(QString sentence READ sentence NOTIFY changed FINAL)
public:
    using QObject::QObject;

    [[nodiscard]] ShelfModel *model() const { return m_model; }
    void setModel(ShelfModel *model);
    [[nodiscard]] Productivity *productivity() const { return m_productivity; }
    void setProductivity(Productivity *productivity);

    /// The focus timer's remaining minutes and seconds, "05:09".
    [[nodiscard]] QString time() const { return m_time; }
    [[nodiscard]] QString symbol() const { return m_look.symbol; }
    [[nodiscard]] QString status() const { return m_look.status; }
    [[nodiscard]] QString title() const { return m_look.title; }
    /// Title and status in one line, for tooltips and assistive programs.
    [[nodiscard]] QString sentence() const;

Q_SIGNALS:
    void changed();

private:
    void refresh();

    QPointer<ShelfModel> m_model;
    QPointer<Productivity> m_productivity;
    QString m_time;
    CompactLook m_look;
};

} // namespace perchly

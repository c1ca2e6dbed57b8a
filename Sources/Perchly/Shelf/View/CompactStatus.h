#pragma once

#include "CompactLook.h"
#include "Productivity.h"
#include "ShelfModel.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// What the collapsed shelf says: the most important thing that goes on, in a symbol, a word and a
/// title. Announces only what really changed, so that a tick of the timer repaints the time alone.
class CompactStatus : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        perchly::ShelfModel *model READ model WRITE setModel NOTIFY modelChanged REQUIRED FINAL)
    Q_PROPERTY(perchly::Productivity *productivity READ productivity WRITE setProductivity NOTIFY
                   productivityChanged REQUIRED FINAL)
    Q_PROPERTY(QString time READ time NOTIFY timeChanged FINAL)
    Q_PROPERTY(QString symbol READ symbol NOTIFY symbolChanged FINAL)
    Q_PROPERTY(QString status READ status NOTIFY statusChanged FINAL)
    Q_PROPERTY(QString title READ title NOTIFY titleChanged FINAL)
    Q_PROPERTY(QString sentence READ sentence NOTIFY sentenceChanged FINAL)
public:
    using QObject::QObject;

    /// The stores may be given in either order; until both are there, everything is empty.
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
    [[nodiscard]] QString sentence() const { return m_sentence; }

Q_SIGNALS:
    void modelChanged();
    void productivityChanged();
    void timeChanged();
    void symbolChanged();
    void statusChanged();
    void titleChanged();
    void sentenceChanged();

private:
    void refresh();
    void assign(QString &field, const QString &value, void (CompactStatus::*changed)());

    QPointer<ShelfModel> m_model;
    QPointer<Productivity> m_productivity;
    QString m_time;
    CompactLook m_look;
    QString m_sentence;
};

} // namespace perchly

#include "CalendarQuestion.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

#include <memory>
#include <utility>

namespace perchly {

using namespace Qt::StringLiterals;

namespace {

/// Matches the program's other windows, whose accent colour is the palette's link colour.
QString styleSheet() {
    return QStringLiteral(
        "QDialog { background: #0b0d0f; }"
        "QLabel { color: rgba(255,255,255,150); font: 13px Inter; }"
        "QLabel#heading { color: rgba(255,255,255,235); font: 600 16px Inter; }"
        "QListWidget { background: rgba(255,255,255,14); border: none; border-radius: 8px;"
        " color: rgba(255,255,255,225); font: 13px Inter; outline: none; padding: 6px; }"
        "QDialog[keysUsed=\"true\"] QListWidget:focus"
        " { border: 2px solid palette(link); padding: 4px; }"
        "QListWidget::item { padding: 4px; background: transparent; }"
        "QPushButton { background: rgba(255,255,255,26); border: 2px solid transparent;"
        " border-radius: 8px; color: rgba(255,255,255,235); font: 500 13px Inter;"
        " padding: 5px 14px; }"
        "QPushButton:hover { background: rgba(255,255,255,40); }"
        "QPushButton:pressed { background: rgba(255,255,255,20); }"
        "QDialog[keysUsed=\"true\"] QPushButton:focus { border-color: palette(link); }"
        "QScrollBar:vertical { background: transparent; width: 8px; }"
        "QScrollBar::handle { background: rgba(255,255,255,55); border-radius: 4px; }"
        "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }");
}

QListWidget *makeList(const QList<FoundCalendar> &calendars) {
    const QString home = QDir::homePath() + u'/';
    auto *list = new QListWidget;
    list->setAccessibleName(
        QCoreApplication::translate("CalendarQuestion", "Calendars that were found"));
    list->setSelectionMode(QAbstractItemView::NoSelection);
    for (const FoundCalendar &calendar : calendars) {
        const QString place = calendar.place.startsWith(home)
                                  ? u"~/"_s + calendar.place.mid(home.size())
                                  : calendar.place;
        QStringList parts{calendar.name, place};
        parts.removeAll(QString());
        list->addItem(parts.join(u" — "_s));
    }
    return list;
}

QLabel *makeLabel(const QString &text) {
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// Marks the keyboard focus only after a key.
class Dialog : public QDialog {
protected:
    bool eventFilter(QObject *, QEvent *event) override {
        if (event->type() == QEvent::KeyPress && !property("keysUsed").toBool()) {
            setProperty("keysUsed", true);
            setStyleSheet(styleSheet()); // evaluates it again
        }
        return false;
    }
};

class Question : public ScheduledTask {
    Q_DECLARE_TR_FUNCTIONS(CalendarQuestion)
public:
    Question(const QList<FoundCalendar> &calendars, bool isGranted, const CalendarAnswer &answer) {
        m_dialog->setWindowTitle(tr("Calendars"));
        m_dialog->resize(460, 320);
        m_dialog->setStyleSheet(styleSheet());
        auto *layout = new QVBoxLayout(m_dialog);
        layout->setContentsMargins(20, 18, 20, 18);
        layout->setSpacing(12);
        QLabel *heading = makeLabel(isGranted ? tr("Perchly reads your calendars")
                                              : tr("Let Perchly read your calendars?"));
        heading->setObjectName(u"heading"_s);
        layout->addWidget(heading);
        layout->addWidget(makeLabel(
            tr("The meetings of the next seven days are shown in the workspace and on the calendar "
               "card. Nothing is changed, kept or sent anywhere. You can take this back with the "
               "same button.")));
        if (calendars.isEmpty()) {
            layout->addWidget(makeLabel(
                tr("No calendar was found yet. Those that appear later would be read, too.")));
            layout->addStretch();
        } else {
            layout->addWidget(makeList(calendars), 1);
        }
        auto *row = new QHBoxLayout;
        row->addStretch();
        for (const auto &[text, result] :
             {std::pair(isGranted ? tr("Stop Reading") : tr("Don’t Allow"), No),
              std::pair(isGranted ? tr("Keep Reading") : tr("Allow"), Yes)}) {
            auto *button = new QPushButton(text);
            button->setAutoDefault(false); // so that Return alone does nothing
            QObject::connect(button, &QPushButton::clicked, m_dialog,
                             [this, code = result] { m_dialog->done(code); });
            row->addWidget(button);
        }
        layout->addLayout(row);
        QObject::connect(
            m_dialog, &QDialog::finished, m_dialog,
            [answer](int result) {
                answer(result == QDialog::Rejected ? std::nullopt : std::optional(result == Yes));
            },
            Qt::SingleShotConnection); // a second click may be queued
        m_dialog->winId();             // creates the window
        m_dialog->windowHandle()->installEventFilter(m_dialog);
        m_dialog->windowHandle()->setTransientParent(QGuiApplication::focusWindow());
        m_dialog->open();
    }
    ~Question() override {
        QObject::disconnect(m_dialog, &QDialog::finished, nullptr, nullptr);
        m_dialog->hide();
        m_dialog->deleteLater();
    }

private:
    enum Result { Yes = QDialog::Accepted, No };

    QDialog *const m_dialog = new Dialog;
};

} // namespace

Task askForCalendars(const QList<FoundCalendar> &calendars, CalendarAccess current,
                     const CalendarAnswer &answer) {
    return std::make_unique<Question>(calendars, current == CalendarAccess::Granted, answer);
}

} // namespace perchly

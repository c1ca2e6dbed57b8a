#include "CalendarQuestion.h"

#include <QDialog>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

#include <memory>

namespace perchly {

namespace {

struct Texts {
    QString heading;
    QString yes;
    QString no;
};

Texts textsFor(CalendarAccess current) {
    if (current == CalendarAccess::Granted) {
        return {QStringLiteral("Perchly reads your calendars"), QStringLiteral("Keep Reading"),
                QStringLiteral("Stop Reading")};
    }
    return {QStringLiteral("Let Perchly read your calendars?"), QStringLiteral("Allow"),
            QStringLiteral("Don’t Allow")};
}

/// As the program's other windows look, whatever the desktop's own style.
QString styleSheet() {
    return QStringLiteral(
        "QDialog { background: #0b0d0f; }"
        "QLabel { color: rgba(255,255,255,150); font: 13px Inter; }"
        "QLabel#heading { color: rgba(255,255,255,235); font: 600 16px Inter; }"
        "QListWidget { background: rgba(255,255,255,14); border: none; border-radius: 8px;"
        " color: rgba(255,255,255,225); font: 13px Inter; outline: none; padding: 6px; }"
        "QListWidget:focus { border: 2px solid #66d4cf; padding: 4px; }"
        "QListWidget::item { padding: 4px; background: transparent; }"
        "QPushButton { background: rgba(255,255,255,26); border: 2px solid transparent;"
        " border-radius: 8px; color: rgba(255,255,255,235); font: 500 13px Inter;"
        " padding: 5px 14px; }"
        "QPushButton:hover { background: rgba(255,255,255,40); }"
        "QPushButton:pressed { background: rgba(255,255,255,20); }"
        "QPushButton:focus { border-color: #66d4cf; }"
        "QScrollBar:vertical { background: transparent; width: 8px; }"
        "QScrollBar::handle { background: rgba(255,255,255,55); border-radius: 4px; }"
        "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }");
}

QString shortPath(const QString &path) {
    const QString home = QDir::homePath() + u'/';
    return path.startsWith(home) ? QStringLiteral("~/") + path.mid(home.size()) : path;
}

QListWidget *makeList(const QList<FoundCalendar> &calendars) {
    auto *list = new QListWidget;
    list->setAccessibleName(QStringLiteral("Calendars that were found"));
    list->setSelectionMode(QAbstractItemView::NoSelection);
    for (const FoundCalendar &calendar : calendars) {
        list->addItem(calendar.place.isEmpty()
                          ? calendar.name
                          : calendar.name + QStringLiteral(" — ") + shortPath(calendar.place));
    }
    return list;
}

QLabel *makeLabel(const QString &text) {
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

struct DeleteLater {
    void operator()(QObject *object) const { object->deleteLater(); }
};

class Question : public ScheduledTask {
public:
    Question(const QList<FoundCalendar> &calendars, CalendarAccess current, CalendarAnswer answer)
        : m_answer(std::move(answer)) {
        build(calendars, textsFor(current));
        QObject::connect(m_dialog.get(), &QDialog::rejected, &m_receiver,
                         [this] { finish(std::nullopt); });
        m_dialog->winId(); // it has a window from here on
        m_dialog->windowHandle()->setTransientParent(QGuiApplication::focusWindow());
        m_dialog->open();
    }
    ~Question() override {
        if (m_dialog) {
            m_dialog->disconnect(&m_receiver);
            m_dialog->hide();
        }
    }

private:
    void build(const QList<FoundCalendar> &calendars, const Texts &texts) {
        m_dialog->setWindowTitle(QStringLiteral("Calendars"));
        m_dialog->resize(460, 320);
        m_dialog->setStyleSheet(styleSheet());
        auto *layout = new QVBoxLayout(m_dialog.get());
        layout->setContentsMargins(20, 18, 20, 18);
        layout->setSpacing(12);
        QLabel *heading = makeLabel(texts.heading);
        heading->setObjectName(QStringLiteral("heading"));
        layout->addWidget(heading);
        layout->addWidget(makeLabel(QStringLiteral(
            "The meetings of the next seven days are shown in the workspace and on the calendar "
            "card. Nothing is changed, kept or sent anywhere. You can take this back with the "
            "same button.")));
        if (calendars.isEmpty()) {
            layout->addWidget(makeLabel(QStringLiteral(
                "No calendar was found yet. Those that appear later would be read, too.")));
            layout->addStretch();
        } else {
            layout->addWidget(makeList(calendars), 1);
        }
        addButtons(*layout, texts);
    }

    void addButtons(QVBoxLayout &layout, const Texts &texts) {
        auto *row = new QHBoxLayout;
        row->addStretch();
        for (const bool allowed : {false, true}) {
            auto *button = new QPushButton(allowed ? texts.yes : texts.no);
            button->setAutoDefault(false); // Return alone says nothing
            QObject::connect(button, &QPushButton::clicked, &m_receiver,
                             [this, allowed] { finish(allowed); });
            row->addWidget(button);
        }
        layout.addLayout(row);
    }

    void finish(std::optional<bool> allowed) {
        if (!m_dialog) {
            return; // a second click was on its way
        }
        m_dialog->disconnect(&m_receiver);
        m_dialog->hide();
        m_dialog.reset();
        const auto answer = std::move(m_answer); // outlives the task that it may destroy
        answer(allowed);
    }

    std::unique_ptr<QDialog, DeleteLater> m_dialog{new QDialog};
    CalendarAnswer m_answer;
    QObject m_receiver; ///< the dialog lives a little longer than the question
};

} // namespace

Task askForCalendars(const QList<FoundCalendar> &calendars, CalendarAccess current,
                     CalendarAnswer answer) {
    return std::make_unique<Question>(calendars, current, std::move(answer));
}

} // namespace perchly

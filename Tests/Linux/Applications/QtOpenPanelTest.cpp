#include "QtOpenPanel.h"
#include "TestFiles.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QFileDialog>
#include <QPushButton>
#include <QTemporaryDir>

using namespace perchly;

class QtOpenPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        for (const char *name : {"a.desktop", "notes.txt"}) {
            writeFile(m_folder.filePath(QString::fromUtf8(name)), {});
        }
        QVERIFY(QDir(m_folder.path()).mkpath(QStringLiteral("a folder/inside")));
    }

    void cleanup() { QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty()); }

    void letsOneChooseApplications() {
        const Task task = ask(OpenPanel::Choice::Applications);
        const QFileDialog *shown = dialog();
        QVERIFY(shown != nullptr);
        QCOMPARE(names(shown),
                 QStringList({QStringLiteral("a folder"), QStringLiteral("a.desktop")}));
        click(shown, QStringLiteral("a.desktop"));
        press(shown, QStringLiteral("Add to shelf"));
        QTRY_COMPARE(m_answers, QList<QList<QUrl>>{{url("a.desktop")}});
    }

    void letsOneChooseAndEnterFolders() {
        Task task = ask();
        const QFileDialog *shown = dialog();
        QVERIFY(shown != nullptr);
        click(shown, QStringLiteral("a folder"));
        click(shown, QStringLiteral("notes.txt"), Qt::ControlModifier);
        press(shown, QStringLiteral("Open"));
        QTRY_COMPARE(m_answers.size(), 1);
        QCOMPARE(QSet<QUrl>(m_answers.first().begin(), m_answers.first().end()),
                 QSet<QUrl>({url("a folder"), url("notes.txt")}));
        cleanup();

        task = ask();
        shown = dialog();
        QVERIFY(shown != nullptr);
        click(shown, QStringLiteral("a folder"));
        QTest::keyClick(list(shown), Qt::Key_Return);
        QTRY_COMPARE(names(shown), QStringList{QStringLiteral("inside")});
        QVERIFY(m_answers.isEmpty());
    }

    void escapeChoosesNothing() {
        const Task task = ask();
        const QFileDialog *shown = dialog();
        QVERIFY(shown != nullptr);
        click(shown, QStringLiteral("notes.txt"));
        QTest::keyClick(shown->windowHandle(), Qt::Key_Escape);
        QTRY_COMPARE(m_answers, QList<QList<QUrl>>{{}});
    }

    void closesWithItsTask() {
        Task task = ask();
        QFileDialog *shown = dialog();
        QVERIFY(shown != nullptr);
        const auto id = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(shown));
        task.reset();
        // A stale one would crash the next widget at the same address.
        QTRY_VERIFY(QAccessible::accessibleInterface(id) == nullptr);
        QVERIFY(m_answers.isEmpty());
    }

private:
    [[nodiscard]] Task ask(OpenPanel::Choice choice = OpenPanel::Choice::FilesAndFolders) {
        m_answers.clear();
        return m_panel.ask({.title = {},
                            .confirmLabel = choice == OpenPanel::Choice::Applications
                                                ? QStringLiteral("Add to shelf")
                                                : QString(),
                            .folder = m_folder.path(),
                            .choice = choice},
                           [this](const QList<QUrl> &chosen) { m_answers.append(chosen); });
    }
    /// The dialog, once it is on the display with its folder read.
    [[nodiscard]] static QFileDialog *dialog() {
        QFileDialog *found = nullptr;
        const bool shown = QTest::qWaitFor([&] {
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                if (widget->isVisible() && QTest::qWaitForWindowActive(widget)) {
                    found = qobject_cast<QFileDialog *>(widget);
                }
            }
            return found != nullptr && list(found)->model()->rowCount(list(found)->rootIndex()) > 0;
        });
        return shown ? found : nullptr;
    }
    [[nodiscard]] static QAbstractItemView *list(const QFileDialog *dialog) {
        return dialog->findChild<QAbstractItemView *>(QStringLiteral("listView"));
    }
    [[nodiscard]] static QStringList names(const QFileDialog *dialog) {
        QStringList found;
        const QAbstractItemView *view = list(dialog);
        for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row) {
            found.append(view->model()->index(row, 0, view->rootIndex()).data().toString());
        }
        found.sort();
        return found;
    }
    static void click(const QFileDialog *dialog, const QString &name,
                      Qt::KeyboardModifiers modifiers = {}) {
        QAbstractItemView *view = list(dialog);
        QModelIndexList found;
        const auto find = [&] {
            found = view->model()->match(view->model()->index(0, 0, view->rootIndex()),
                                         Qt::DisplayRole, name, 1, Qt::MatchExactly);
            return !found.isEmpty();
        };
        QVERIFY(QTest::qWaitFor(find));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers,
                          view->visualRect(found.first()).center());
    }
    static void press(const QFileDialog *dialog, const QString &label) {
        for (QPushButton *button : dialog->findChildren<QPushButton *>()) {
            if (button->isVisible() && button->text().remove(QLatin1Char('&')) == label) {
                QVERIFY(button->isEnabled());
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        QFAIL(qPrintable(QStringLiteral("no button ") + label));
    }
    [[nodiscard]] QUrl url(const char *name) const {
        return QUrl::fromLocalFile(m_folder.filePath(QString::fromUtf8(name)));
    }

    QTemporaryDir m_folder;
    QtOpenPanel m_panel;
    QList<QList<QUrl>> m_answers;
};

QTEST_MAIN(QtOpenPanelTest)
#include "QtOpenPanelTest.moc"

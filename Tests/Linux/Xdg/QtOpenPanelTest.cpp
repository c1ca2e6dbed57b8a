#include "QtOpenPanel.h"
#include "TestFiles.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFileDialog>
#include <QPushButton>
#include <QRasterWindow>
#include <QTemporaryDir>

using namespace perchly;

class QtOpenPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        for (const char *name : {"a.desktop", "b.desktop", "notes.txt"}) {
            writeFile(m_folder.filePath(QString::fromUtf8(name)), {});
        }
        QVERIFY(QDir(m_folder.path()).mkpath(QStringLiteral("a folder/inside")));
    }

    void cleanup() { QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty()); }

    void letsOneChooseApplications() {
        const Task task = ask(OpenPanel::Choice::Applications, QStringLiteral("Add to shelf"));
        const QFileDialog *shown = dialog();
        QVERIFY(shown != nullptr);
        QCOMPARE(shown->windowTitle(), QStringLiteral("A title"));
        QCOMPARE(names(shown), QStringList({QStringLiteral("a folder"), QStringLiteral("a.desktop"),
                                            QStringLiteral("b.desktop")}));
        click(shown, QStringLiteral("b.desktop"));
        click(shown, QStringLiteral("a.desktop"), Qt::ControlModifier);
        QVERIFY(m_answers.isEmpty());
        press(shown, QStringLiteral("Add to shelf"));
        QTRY_COMPARE(m_answers.size(), 1);
        QCOMPARE(QSet<QUrl>(m_answers.first().begin(), m_answers.first().end()),
                 QSet<QUrl>({url("a.desktop"), url("b.desktop")}));
    }

    void letsOneChooseAndEnterFolders() {
        Task task = ask(OpenPanel::Choice::FilesAndFolders);
        const QFileDialog *shown = dialog();
        QVERIFY(shown != nullptr);
        click(shown, QStringLiteral("a folder"));
        click(shown, QStringLiteral("notes.txt"), Qt::ControlModifier);
        press(shown, QStringLiteral("Open"));
        QTRY_COMPARE(m_answers.size(), 1);
        QCOMPARE(QSet<QUrl>(m_answers.first().begin(), m_answers.first().end()),
                 QSet<QUrl>({url("a folder"), url("notes.txt")}));
        cleanup();

        task = ask(OpenPanel::Choice::FilesAndFolders);
        shown = dialog();
        QVERIFY(shown != nullptr);
        click(shown, QStringLiteral("a folder"));
        QTest::keyClick(list(shown), Qt::Key_Return);
        QTRY_COMPARE(names(shown), QStringList{QStringLiteral("inside")});
        QVERIFY(m_answers.isEmpty());
    }

    void holdsUpItsWindowUntilItIsCancelled() {
        QRasterWindow window;
        window.resize(300, 200);
        window.show();
        window.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const Task task = ask(OpenPanel::Choice::FilesAndFolders);
        const QFileDialog *shown = dialog();
        QVERIFY(shown != nullptr);
        QCOMPARE(shown->windowHandle()->transientParent(), &window);
        QCOMPARE(shown->windowModality(), Qt::WindowModal);
        click(shown, QStringLiteral("notes.txt"));
        QTest::keyClick(shown->windowHandle(), Qt::Key_Escape);
        QTRY_COMPARE(m_answers, QList<QList<QUrl>>{{}});
    }

    void closesWithItsTask() {
        Task task = ask(OpenPanel::Choice::Applications);
        QVERIFY(dialog() != nullptr);
        task = ask(OpenPanel::Choice::FilesAndFolders); // the first one closes
        QVERIFY(dialog() != nullptr);
        QTRY_COMPARE(QApplication::topLevelWidgets().size(), 1);
        task.reset();
        QTest::qWait(50);
        QVERIFY(m_answers.isEmpty());
    }

private:
    [[nodiscard]] Task ask(OpenPanel::Choice choice, const QString &label = {}) {
        m_answers.clear();
        Task task = m_panel.ask({.title = QStringLiteral("A title"),
                                 .confirmLabel = label,
                                 .folder = m_folder.path(),
                                 .choice = choice},
                                [this](const QList<QUrl> &chosen) { m_answers.append(chosen); });
        return task;
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

#include "QtOpenPanel.h"

#include "PortalFileChooser.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

#include <algorithm>
#include <memory>

namespace perchly {

namespace {

/// Lets the user choose a folder, where QFileDialog would open it.
class AnyFileDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    void accept() override {
        const QStringList files = selectedFiles();
        const auto exists = [](const QString &file) { return QFileInfo::exists(file); };
        if (!files.isEmpty() && std::ranges::all_of(files, exists)) {
            done(Accepted);
        } else {
            QFileDialog::accept();
        }
    }
};

struct DeleteLater {
    void operator()(QObject *object) const { object->deleteLater(); }
};

using Dialog = std::unique_ptr<QFileDialog, DeleteLater>;

Dialog makeDialog(const OpenPanel::Request &request) {
    Dialog dialog;
    if (request.choice == OpenPanel::Choice::FilesAndFolders) {
        dialog.reset(new AnyFileDialog);
        dialog->setOption(QFileDialog::DontUseNativeDialog);
    } else {
        dialog.reset(new QFileDialog);
        dialog->setNameFilter(QCoreApplication::translate("OpenPanel", "Applications (*.desktop)"));
    }
    dialog->setOption(QFileDialog::DontResolveSymlinks);
    dialog->setOption(QFileDialog::DontUseCustomDirectoryIcons);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setWindowTitle(request.title);
    if (!request.confirmLabel.isEmpty()) {
        dialog->setLabelText(QFileDialog::Accept, request.confirmLabel);
    }
    if (QFileInfo(request.folder).isDir()) {
        dialog->setDirectory(request.folder);
    }
    return dialog;
}

class Question : public ScheduledTask {
public:
    Question(const QDBusConnection &bus, const OpenPanel::Request &request,
             OpenPanel::Completion completion)
        : m_request(request)
        , m_window(QGuiApplication::focusWindow())
        , m_completion(std::move(completion)) {
        if (bus.isConnected()) {
            m_portal = chooseByPortal(bus, request, m_window,
                                      [this](const std::optional<QList<QUrl>> &chosen) {
                                          const auto portal = std::move(m_portal);
                                          if (chosen) {
                                              finish(*chosen);
                                          } else {
                                              openDialog();
                                          }
                                      });
        } else {
            openDialog();
        }
    }
    ~Question() override {
        if (m_dialog) {
            m_dialog->disconnect(&m_receiver);
            m_dialog->hide();
        }
    }

private:
    void openDialog() {
        m_dialog = makeDialog(m_request);
        QObject::connect(m_dialog.get(), &QFileDialog::finished, &m_receiver, [this](int result) {
            const QList<QUrl> chosen =
                result == QDialog::Accepted ? m_dialog->selectedUrls() : QList<QUrl>();
            m_dialog.reset();
            finish(chosen);
        });
        m_dialog->winId(); // creates the window
        m_dialog->windowHandle()->setTransientParent(m_window);
        m_dialog->open();
    }
    void finish(const QList<QUrl> &chosen) {
        const auto completion = std::move(m_completion); // it may destroy this object
        completion(chosen);
    }

    const OpenPanel::Request m_request;
    const QPointer<QWindow> m_window; ///< below the dialog
    std::unique_ptr<PortalRequest> m_portal;
    Dialog m_dialog;
    OpenPanel::Completion m_completion;
    QObject m_receiver; ///< context of the connections: the dialog lives a little longer
};

} // namespace

QtOpenPanel::QtOpenPanel(std::shared_ptr<SessionBus> bus)
    : m_bus(std::move(bus)) {}

Task QtOpenPanel::ask(const Request &request, Completion completion) {
    return std::make_unique<Question>(m_bus->connection(), request, std::move(completion));
}

} // namespace perchly

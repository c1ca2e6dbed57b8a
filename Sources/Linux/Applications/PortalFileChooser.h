#pragma once

#include "OpenPanel.h"

#include <QDBusConnection>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

#include <optional>

class QWindow;

namespace perchly {

/// One question in the desktop's file dialog, through the portal. Destroying it closes the dialog.
class PortalFileChooser : public QObject {
    Q_OBJECT
public:
    /// Called once, never before the constructor has returned: with the chosen files, with none if
    /// the user cancelled, or with nullopt if the portal shows no dialog. It may destroy this
    /// object.
    using Completion = std::function<void(const std::optional<QList<QUrl>> &chosen)>;

    /// The dialog is shown above the window, if any.
    PortalFileChooser(const QDBusConnection &bus, const OpenPanel::Request &request,
                      const QWindow *window, Completion completion);
    ~PortalFileChooser() override;

private Q_SLOTS:
    void onResponse(uint response, const QVariantMap &results);

private:
    void finish(const std::optional<QList<QUrl>> &chosen);

    QDBusConnection m_bus;
    QString m_handle;
    QTimer m_timeout;
    bool m_answered = false; ///< the portal shows no dialog any more
    Completion m_completion; ///< null after it was called
};

} // namespace perchly

#pragma once

#include "SelectionWatch.h"

#include <QHash>

namespace perchly {

/// The texts in the settings that a desktop publishes on X, by their names, as in
/// "Net/IconThemeName". Empty if the data are damaged.
[[nodiscard]] QHash<QByteArray, QString> parseXSettings(const QByteArray &data);

/// These settings, kept up to date; empty without a desktop that publishes them. Main thread only.
class XSettings : public QObject {
    Q_OBJECT
public:
    XSettings();

    [[nodiscard]] QString text(const QByteArray &name) const { return m_texts.value(name); }

Q_SIGNALS:
    void changed();

private:
    void follow();
    void read();
    void handleEvent(const xcb_generic_event_t *event);

    XcbConnection m_connection;
    SelectionWatch m_manager{m_connection, QByteArrayLiteral("_XSETTINGS_S0")};
    QHash<QByteArray, QString> m_texts;
};

} // namespace perchly

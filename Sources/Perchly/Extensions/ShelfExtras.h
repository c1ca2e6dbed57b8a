#pragma once

#include "Battery.h"
#include "Capture.h"
#include "LaunchGroups.h"
#include "Meetings.h"
#include "QuickLook.h"
#include "SearchResults.h"
#include "Snippets.h"

namespace perchly {

struct Hosts;
class Productivity;

/// The extras of the workspace window: the section, their stores, and previews. Main thread only.
class ShelfExtras : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString section READ section WRITE setSection NOTIFY sectionChanged FINAL)
    Q_PROPERTY(perchly::SearchResults *search READ search CONSTANT FINAL)
    Q_PROPERTY(perchly::LaunchGroups *groups READ groups CONSTANT FINAL)
    Q_PROPERTY(perchly::Snippets *snippets READ snippets CONSTANT FINAL)
    Q_PROPERTY(perchly::Meetings *meetings READ meetings CONSTANT FINAL)
    Q_PROPERTY(perchly::Battery *battery READ battery CONSTANT FINAL)
    Q_PROPERTY(perchly::Capture *capture READ capture CONSTANT FINAL)
public:
    /// Reads the battery and the meetings every 30 seconds. The arguments must outlive this object.
    ShelfExtras(Hosts &hosts, ShelfLibrary &library, Productivity &productivity,
                ShellActions &shell, QObject *parent = nullptr);

    /// The selected section of the workspace window, by its title.
    [[nodiscard]] QString section() const { return m_section; }
    void setSection(const QString &section);

    [[nodiscard]] SearchResults *search() { return &m_search; }
    [[nodiscard]] LaunchGroups *groups() { return &m_groups; }
    [[nodiscard]] Snippets *snippets() { return &m_snippets; }
    [[nodiscard]] Meetings *meetings() { return &m_meetings; }
    [[nodiscard]] Battery *battery() { return &m_battery; }
    [[nodiscard]] Capture *capture() { return &m_capture; }

    /// Shows a file or link in front in the preview window, or closes the window if it already
    /// shows that item. There the user can switch to the other items of the list.
    Q_INVOKABLE void togglePreview(const QUrl &url, const QList<QUrl> &among);

Q_SIGNALS:
    void sectionChanged();

private:
    QuickLook &m_quickLook;
    QString m_section = QStringLiteral("Search");
    LaunchGroups m_groups;
    Snippets m_snippets;
    Meetings m_meetings;
    Battery m_battery;
    Capture m_capture;
    SearchResults m_search;
    Task m_poll;
};

} // namespace perchly

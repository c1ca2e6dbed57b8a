#pragma once

#include "ApplicationCatalog.h"
#include "FolderWatch.h"

#include <QThreadPool>

#include <stop_token>
#include <vector>

namespace perchly {

/// The applications of the desktop's data folders. One thread looks at a time, and ends when it is
/// idle; who asks while a search is waiting to begin shares it. Destroying the catalog stops the
/// search under way.
class DesktopCatalog : public ApplicationCatalog {
    Q_OBJECT
public:
    explicit DesktopCatalog(QObject *parent = nullptr);
    ~DesktopCatalog() override;

    void find(Completion completion) override;
    void describe(const QStringList &paths, Completion completion) override;
    [[nodiscard]] QString startFolder() const override;

private:
    void startSearch();

    FolderWatch m_watch;
    std::vector<Completion> m_waiting; ///< for a search that has not begun
    bool m_searching = false;
    std::stop_source m_stop;
    QThreadPool m_pool; ///< destroyed first: it waits for the thread
};

} // namespace perchly

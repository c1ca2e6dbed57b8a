#include "Notice.h"

#include "HeldFiles.h"

namespace perchly {

std::function<void(const QString &error)> reportFailure(const Notice &notice, const QString &doing,
                                                        const QUrl &url) {
    return [notice, doing, label = HeldFiles::labelOf(url)](const QString &error) {
        if (!error.isEmpty()) {
            notice(doing + u' ' + label + QStringLiteral(". ") + error);
        }
    };
}

} // namespace perchly

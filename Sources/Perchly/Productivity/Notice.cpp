#include "Notice.h"

#include "HeldFiles.h"

namespace perchly {

std::function<void(const QString &error)> reportFailure(const Notice &notice,
                                                        const QString &sentence, const QUrl &url) {
    return [notice, sentence, label = HeldFiles::labelOf(url)](const QString &error) {
        if (!error.isEmpty()) {
            notice(sentence.arg(label, error));
        }
    };
}

} // namespace perchly

#include "ParagraphDirection.h"

#include <QTextDocument>
#include <QTextOption>

namespace perchly {

void ParagraphDirection::apply() {
    if (!m_document) {
        return;
    }
    QTextDocument &document = *m_document->textDocument();
    QTextOption option = document.defaultTextOption();
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setAlignment(Qt::AlignLeft); // mirrored for right-to-left text
    document.setDefaultTextOption(option);
}

} // namespace perchly

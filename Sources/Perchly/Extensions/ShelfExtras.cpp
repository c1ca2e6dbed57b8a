#include "ShelfExtras.h"

namespace perchly {

void ShelfExtras::setSection(const QString &section) {
    m_section = section;
    Q_EMIT sectionChanged();
}

} // namespace perchly

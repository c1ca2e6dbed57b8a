#include "StripPaging.h"

#include <algorithm>

namespace perchly {

double StripPaging::lowest(qsizetype entries) {
    constexpr double gap = pitch - entryWidth;
    return std::min(0.0, visibleWidth - (std::max(double(entries) * pitch, gap) - gap));
}

double StripPaging::previous(double offset) {
    return std::min(offset + step, 0.0);
}

double StripPaging::next(double offset, qsizetype entries) {
    return std::max(offset - step, lowest(entries));
}

double StripPaging::dragged(double offset, double translation, qsizetype entries) {
    const double moved = translation < 0 ? offset - step : offset + step;
    return std::max(std::min(moved, 0.0), lowest(entries));
}

double StripPaging::showing(qsizetype entry, double offset, qsizetype entries) {
    const double left = double(entry) * pitch;
    while (left + offset < 0 && offset < 0) {
        offset = previous(offset);
    }
    while (left + entryWidth + offset > visibleWidth && offset > lowest(entries)) {
        offset = next(offset, entries);
    }
    return offset;
}

bool StripPaging::shows(qsizetype entry, double offset) {
    const double left = double(entry) * pitch + offset;
    return left >= 0 && left + entryWidth <= visibleWidth;
}

qsizetype StripPaging::nearest(qsizetype entry, double offset, qsizetype entries) {
    const auto step = qsizetype(double(entry) * pitch + offset < 0 ? 1 : -1);
    qsizetype found = entry;
    while (found >= 0 && found < entries && !shows(found, offset)) {
        found += step;
    }
    return std::clamp(found, qsizetype(0), std::max(entries - 1, qsizetype(0)));
}

} // namespace perchly

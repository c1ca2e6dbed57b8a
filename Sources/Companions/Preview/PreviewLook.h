#pragma once

#include <QColor>
#include <QFont>
#include <QString>

/// Colours and fonts of the preview window, the same as in the main program.
namespace perchly::previewlook {

inline constexpr QColor background(11, 13, 15);
inline constexpr QColor foreground(255, 255, 255, 235);
inline constexpr QColor secondary(255, 255, 255, 140);
inline constexpr QColor mint(102, 212, 207);

[[nodiscard]] QFont font(int pixels, QFont::Weight weight = QFont::Normal);

/// The style sheet of the window's Qt widgets: slim scroll bars, no frames.
[[nodiscard]] QString styleSheet();

} // namespace perchly::previewlook

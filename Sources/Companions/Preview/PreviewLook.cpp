#include "PreviewLook.h"

namespace perchly::previewlook {

QFont font(int pixels, QFont::Weight weight) {
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

QString styleSheet() {
    return QStringLiteral(
        "QPlainTextEdit, QAbstractScrollArea { border: none; background: transparent;"
        " color: rgba(255,255,255,225); selection-background-color: rgba(102,212,207,90); }"
        "QScrollBar { background: transparent; margin: 3px; }"
        "QScrollBar:vertical { width: 11px; } QScrollBar:horizontal { height: 11px; }"
        "QScrollBar::handle { background: rgba(255,255,255,55); border-radius: 2px; }"
        "QScrollBar::handle:vertical { min-height: 30px; }"
        "QScrollBar::handle:horizontal { min-width: 30px; }"
        "QScrollBar::handle:hover { background: rgba(255,255,255,95); }"
        "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
        "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }"
        "QPushButton { background: rgba(255,255,255,22); border-radius: 18px; }"
        "QPushButton:hover, QPushButton:pressed { background: rgba(255,255,255,40); }"
        "QPushButton:focus { border: 1.5px solid #66d4cf; }"
        "QSlider::groove:horizontal { height: 4px; border-radius: 2px;"
        " background: rgba(255,255,255,45); }"
        "QSlider::sub-page:horizontal { background: #66d4cf; border-radius: 2px; }"
        "QSlider::handle:horizontal { background: white; width: 12px; height: 12px;"
        " margin: -4px 0; border-radius: 6px; }");
}

} // namespace perchly::previewlook

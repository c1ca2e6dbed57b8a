#pragma once

#include "Pasteboard.h"

#include <QTest>

#include <functional>
#include <optional>

namespace perchly {

inline constexpr qsizetype maxImageBytes = 5'000'000;
inline constexpr qsizetype maxTextBytes = 100'000;

/// Reads like the clipboard history. Calls `meanwhile` once the reading has begun.
inline PasteboardContent readForHistory(Pasteboard &pasteboard,
                                        const std::function<void()> &meanwhile = nullptr) {
    std::optional<PasteboardContent> content;
    const Task task = pasteboard.read({.unwanted = {pasteboardtype::concealed},
                                       .maxImageBytes = maxImageBytes,
                                       .maxTextBytes = maxTextBytes},
                                      [&](const PasteboardContent &result) { content = result; });
    if (meanwhile)
        meanwhile();
    if (!QTest::qWaitFor([&] { return content.has_value(); }, 15'000))
        qFatal("The reading does not end.");
    return *content;
}

} // namespace perchly

// When the shelf opens and closes.

#include "AppDelegate.h"
#include "Hosts.h"
#include "PreferenceKeys.h"

#include <algorithm>
#include <utility>

namespace perchly {

using std::chrono::milliseconds;

namespace {

constexpr double defaultHoverDelay = 0.35;
constexpr milliseconds settleDelay{500};
constexpr milliseconds reducedSettleDelay{150};

/// Seconds as stored, which may be anything that a number can be.
milliseconds delayOf(double seconds) {
    constexpr double longest = 24 * 60 * 60;
    return milliseconds(qint64(std::clamp(seconds, 0.0, longest) * 1000));
}

} // namespace

void AppDelegate::checkHover() {
    const bool isCapturing = m_extras && m_extras->capturing();
    if (m_keyboardOpen || m_model.dragging() || isCapturing) {
        return;
    }
    if (m_model.choosingWidget()) {
        m_closeTask.reset();
        return;
    }
    const ShelfSize size = m_model.expanded() ? ShelfSize::Expanded : ShelfSize::Compact;
    const ScreenPoint pointer = m_hosts.pointer->position();
    if (shelfFrame(size).contains(pointer)) {
        m_closeTask.reset();
        const bool opens = m_hosts.preferences->boolean(keys::openOnHover).value_or(true);
        if (!m_model.expanded() && opens) {
            setExpanded(true);
        }
    } else if (m_model.expanded() && !m_closeTask) {
        startCloseTask();
    }
    watchForJumps(pointer);
}

/// Another program may make the pointer jump, which is no movement. The open shelf's crossings tell
/// of that; where its frame is larger than what it shows, only looking does.
void AppDelegate::watchForJumps(ScreenPoint pointer) {
    const bool isUnseen = m_model.expanded() && !m_panel->takesPointer(pointer) &&
                          shelfFrame(ShelfSize::Expanded).contains(pointer);
    m_hosts.pointer->setPolling(isUnseen);
}

/// The closed shelf opens by movement only, not when it comes to lie under a pointer at rest.
void AppDelegate::onPointerCrossing() {
    if (m_model.expanded()) {
        checkHover();
    }
}

void AppDelegate::startCloseTask() {
    const double seconds =
        m_hosts.preferences->number(keys::hoverDelay).value_or(defaultHoverDelay);
    m_closeTask = m_hosts.clock->after(delayOf(seconds), [this] { setExpanded(false); });
}

void AppDelegate::setExpanded(bool expanded) {
    m_closeTask.reset();
    if (m_model.dragging() || m_model.expanded() == expanded) {
        return;
    }
    m_settleTask.reset();
    if (expanded) {
        placePanel(ShelfSize::Expanded); // large before the view starts to open
        m_model.setExpanded(true);
    } else {
        m_model.setExpanded(false);
        returnKeyboard();
        startSettleTask();
        m_hosts.pointer->setPolling(false);
    }
}

void AppDelegate::startSettleTask() {
    const milliseconds delay = m_hosts.motion->isReduced() ? reducedSettleDelay : settleDelay;
    m_settleTask = m_hosts.clock->after(delay, [this] {
        if (!m_model.expanded()) {
            placePanel(ShelfSize::Compact);
        }
    });
}

void AppDelegate::setKeyboardOpen(bool open) {
    m_keyboardOpen = open;
    m_keyboardBorrowed = false;
    setExpanded(open);
    m_hosts.pointer->setPolling(false);
    if (open) {
        m_hosts.panel->orderFront();
        m_hosts.panel->takeKeyboard();
    } else {
        m_hosts.panel->giveKeyboardBack();
    }
}

bool AppDelegate::takeKeyboard() {
    if (!m_model.expanded() || m_hosts.panel->hasKeyboard()) {
        return false;
    }
    m_keyboardBorrowed = !m_keyboardOpen;
    m_hosts.panel->takeKeyboard();
    return m_keyboardBorrowed;
}

void AppDelegate::returnKeyboard() {
    if (std::exchange(m_keyboardBorrowed, false)) {
        m_hosts.panel->giveKeyboardBack();
    }
}

void AppDelegate::toggleKeyboardOpen() {
    if (m_model.dragging()) {
        return; // which ends closed
    }
    setKeyboardOpen(!m_keyboardOpen);
}

} // namespace perchly

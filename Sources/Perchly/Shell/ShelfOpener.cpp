#include "ShelfOpener.h"

#include "Hosts.h"
#include "ShelfModel.h"
#include "ShelfPanel.h"
#include "ShelfPlacement.h"
#include "ShelfPreferences.h"

#include <algorithm>
#include <utility>

namespace perchly {

using std::chrono::milliseconds;

namespace {

constexpr milliseconds settleDelay{500};
constexpr milliseconds reducedSettleDelay{150};

/// Converts stored seconds, which may be any number.
milliseconds delayOf(double seconds) {
    constexpr double maxSeconds = 24 * 60 * 60;
    return milliseconds(qint64(std::clamp(seconds, 0.0, maxSeconds) * 1000));
}

} // namespace

ShelfOpener::ShelfOpener(Hosts &hosts, const ShelfPreferences &preferences, ShelfModel &model,
                         ShelfPlacement &placement, const ShelfPanel &panel)
    : m_hosts(hosts)
    , m_preferences(preferences)
    , m_model(model)
    , m_placement(placement)
    , m_panel(panel) {}

void ShelfOpener::pointerAt(ScreenPoint pointer) {
    if (isKeyboardOpen() || m_model.dragging()) {
        return;
    }
    if (m_model.staysOpen()) {
        m_closeTask.reset();
        return;
    }
    const ShelfSize size = m_model.expanded() ? ShelfSize::Expanded : ShelfSize::Compact;
    watchForJumps(pointer);
    if (m_placement.frame(size).contains(pointer)) {
        m_closeTask.reset();
        startOpenTask();
    } else {
        m_openTask.reset();
        if (m_model.expanded() && !m_closeTask) {
            startCloseTask();
        }
    }
}

/// The panel gets a leave event when the pointer jumps off the open shelf. Polling is needed only
/// where the frame is larger than the panel's shape.
void ShelfOpener::watchForJumps(ScreenPoint pointer) {
    const bool isNeeded = m_model.expanded() && !m_panel.takesPointer(pointer) &&
                          m_placement.frame(ShelfSize::Expanded).contains(pointer);
    m_hosts.pointer->watch(isNeeded ? PointerMonitor::Watch::Jumps
                                    : PointerMonitor::Watch::Movements);
}

void ShelfOpener::startOpenTask() {
    if (m_model.expanded() || m_openTask || !m_preferences.openOnHover()) {
        return;
    }
    const milliseconds delay = delayOf(m_preferences.openingDelay());
    if (delay == milliseconds::zero()) {
        openUnderPointer();
    } else {
        m_openTask = m_hosts.clock->after(delay, [this] { openUnderPointer(); });
    }
}

/// Dragging a window or a selection across the shelf must not open it, until it ends there.
void ShelfOpener::openUnderPointer() {
    m_openTask.reset();
    const ScreenPoint pointer = m_hosts.pointer->position();
    if (!m_placement.frame(ShelfSize::Compact).contains(pointer)) {
        return;
    }
    if (m_hosts.pointer->isButtonHeld()) {
        m_hosts.pointer->watch(PointerMonitor::Watch::Releases);
    } else {
        setExpanded(true);
        watchForJumps(pointer);
    }
}

void ShelfOpener::draggedOver() {
    if (m_preferences.openOnHover()) {
        setExpanded(true);
    }
}

void ShelfOpener::startCloseTask() {
    m_closeTask =
        m_hosts.clock->after(delayOf(m_preferences.hoverDelay()), [this] { setExpanded(false); });
}

void ShelfOpener::setExpanded(bool expanded) {
    m_openTask.reset();
    m_closeTask.reset();
    if (m_model.dragging() || m_model.expanded() == expanded) {
        return;
    }
    m_settleTask.reset();
    if (expanded) {
        m_placement.place(ShelfSize::Expanded); // before the view starts to open
        m_model.setExpanded(true);
    } else {
        m_model.setExpanded(false);
        returnKeyboard();
        startSettleTask();
        setKeyboardMode(false);
    }
}

void ShelfOpener::startSettleTask() {
    const milliseconds delay = m_hosts.motion->isReduced() ? reducedSettleDelay : settleDelay;
    m_settleTask = m_hosts.clock->after(delay, [this] { m_placement.place(ShelfSize::Compact); });
}

bool ShelfOpener::isKeyboardOpen() const {
    return m_model.keyboardOpen();
}

void ShelfOpener::setKeyboardMode(bool on) {
    m_model.setKeyboardOpen(on);
    m_hosts.pointer->watch(on ? PointerMonitor::Watch::Nothing : PointerMonitor::Watch::Movements);
}

void ShelfOpener::setKeyboardOpen(bool open) {
    setKeyboardMode(open);
    m_keyboardBorrowed = false;
    setExpanded(open);
    if (open) {
        m_hosts.panel->orderFront();
        m_hosts.panel->takeKeyboard();
    } else {
        m_hosts.panel->giveKeyboardBack();
    }
}

void ShelfOpener::toggleKeyboardOpen() {
    if (!m_model.dragging()) {
        setKeyboardOpen(!isKeyboardOpen());
    }
}

bool ShelfOpener::takeKeyboard() {
    if (!m_model.expanded() || m_hosts.panel->hasKeyboard()) {
        return false;
    }
    m_keyboardBorrowed = !isKeyboardOpen();
    m_hosts.panel->takeKeyboard();
    return m_keyboardBorrowed;
}

void ShelfOpener::returnKeyboard() {
    if (std::exchange(m_keyboardBorrowed, false)) {
        m_hosts.panel->giveKeyboardBack();
    }
}

void ShelfOpener::closeForWindow() {
    setKeyboardMode(false);
    m_keyboardBorrowed = false;
    setExpanded(false);
}

void ShelfOpener::keyboardLost() {
    if (isKeyboardOpen()) {
        closeForWindow();
    }
}

void ShelfOpener::keyboardRefused() {
    if (isKeyboardOpen()) {
        setKeyboardOpen(false);
    }
    m_model.setControlError(tr("This desktop does not let the shelf use the keyboard."),
                            tr("No keyboard"));
}

void ShelfOpener::closeForDrag() {
    m_keyboardBorrowed = m_keyboardBorrowed || isKeyboardOpen();
    setKeyboardMode(false);
    m_openTask.reset();
    m_closeTask.reset();
    m_settleTask.reset();
    m_model.setExpanded(false);
}

} // namespace perchly

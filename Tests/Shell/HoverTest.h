#pragma once

#include <QObject>

class HoverTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void opensAtTheFirstMovementAndClosesAfterTheDelay();
    void staysOpenWhenThePointerReturnsInTime();
    void readsTheCollapseDelay_data();
    void readsTheCollapseDelay();
    void opensOnHoverUnlessStoredFalse_data();
    void opensOnHoverUnlessStoredFalse();
    void takesMinimumEdgesAndLeavesMaximumEdges_data();
    void takesMinimumEdgesAndLeavesMaximumEdges();
    void shrinksThePanelSoonerWithReducedMotion();
    void reopensWhileThePanelIsStillLarge();
    void neverClosesUnderTheWidgetChooser();
    void ignoresThePointerInKeyboardMode();
    void showShelfClosesByTheHoverRules();
    void cancelsAPendingCollapseWhenToggled();
};

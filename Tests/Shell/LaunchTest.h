#pragma once

#include <QObject>

class LaunchTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void placesAndShowsThePanel();
    void runsWithoutADisplayAndAppearsWithOne();
    void theStatusMenuHasItsSixEntries();
    void windowsOpenWithTheirTitlesAndSizes_data();
    void windowsOpenWithTheirTitlesAndSizes();
    void aWindowIsReusedAfterItWasClosed();
    void openingAWindowCollapsesTheShelf();
    void searchSelectsItsSection();
    void followsDisplaysAndScale();
    void fallsBackToTheLastDisplay_data();
    void fallsBackToTheLastDisplay();
    void performsTheDesktopsActions();
    void reportsHotKeysHeldByOthers();
};

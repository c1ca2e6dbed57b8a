#pragma once

#include <QObject>

class DraggingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void toldFromAClickByEightPoints_data();
    void toldFromAClickByEightPoints();
    void keepsTheGrabPointUnderThePointer();
    void holdsASideStripByItsCentre();
    void collapsesAnOpenShelfAndGivesBackTheKeyboard();
    void docksWhereItIsLetGo_data();
    void docksWhereItIsLetGo();
    void snapsToACameraHousing_data();
    void snapsToACameraHousing();
    void nothingElseMovesTheShelfMeanwhile();
    void endsWithoutDisplaysAndStoresNothing();
    void survivesALostRelease();
};

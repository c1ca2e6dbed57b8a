#include "Displays.h"

// Gives the interface's meta-object one home.
#include "moc_Displays.cpp"

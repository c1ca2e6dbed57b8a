#include "Motion.h"

// Gives the interface's meta-object one home.
#include "moc_Motion.cpp"

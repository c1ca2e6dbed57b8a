#include "PointerMonitor.h"

// Gives the interface's meta-object one home.
#include "moc_PointerMonitor.cpp"

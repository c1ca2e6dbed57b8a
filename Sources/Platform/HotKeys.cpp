#include "HotKeys.h"

// Gives the interface's meta-object one home.
#include "moc_HotKeys.cpp"

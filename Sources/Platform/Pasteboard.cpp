#include "Pasteboard.h"

// Gives the interface's meta-object one home.
#include "moc_Pasteboard.cpp"

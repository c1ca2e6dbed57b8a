#include "SingleInstance.h"

// Gives the interface's meta-object one home.
#include "moc_SingleInstance.cpp"

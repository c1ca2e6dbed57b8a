#include "PowerSources.h"

// The interface has a source file of its own so that its meta-object is built once, here.
#include "moc_PowerSources.cpp"

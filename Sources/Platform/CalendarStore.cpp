#include "CalendarStore.h"

// Gives the interface's meta-object one home.
#include "moc_CalendarStore.cpp"

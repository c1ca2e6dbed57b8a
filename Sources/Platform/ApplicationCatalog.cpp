#include "ApplicationCatalog.h"

// Gives the interface's meta-object one home.
#include "moc_ApplicationCatalog.cpp"

#include "PanelHost.h"

// Gives the interface's meta-object one home.
#include "moc_PanelHost.cpp"

#include "PlayerNotifications.h"

// Gives the interface's meta-object one home.
#include "moc_PlayerNotifications.cpp"

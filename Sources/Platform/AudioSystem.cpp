#include "AudioSystem.h"

// Gives the interface's meta-object one home.
#include "moc_AudioSystem.cpp"

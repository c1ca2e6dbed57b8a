"""Starts Perchly in an X session of its own and acts on it as a person would.

The session is a virtual X server, a window manager, a private bus and private folders. Input goes
through XTEST, so it takes the same way as a mouse and a keyboard; controls are found through the
accessibility bus, so what a screen reader hears is part of what the tests see.
"""

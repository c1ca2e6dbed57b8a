import Perchly.Look

/// A drawn symbol in a file of its own, so that the many symbols of the font need not know its type.
DrawnSymbol {}

#pragma once

#include <QByteArray>

#include <cassert>
#include <fstream>

namespace perchly {

/// Defined by each target: decodes an input and checks the invariants of the result. Runs in an
/// empty folder.
void fuzz(const QByteArray &input);

} // namespace perchly

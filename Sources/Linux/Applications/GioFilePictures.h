#pragma once

#include "FilePictures.h"
#include "Workers.h"

namespace perchly {

class Applications;
class PictureReader;

/// The thumbnails and file types that GIO finds. Pictures without a thumbnail are decoded by the
/// picture reader.
class GioFilePictures : public FilePictures {
public:
    /// The arguments must outlive this object.
    GioFilePictures(Applications &applications, PictureReader &reader);

    [[nodiscard]] Task read(const QString &path, int side, Completion completion) override;

private:
    Applications &m_applications;
    PictureReader &m_reader;
    Workers m_workers{2}; ///< separate: a file may be on a disk that does not answer
};

} // namespace perchly

#include "GioFilePictures.h"

#include "Applications.h"
#include "GioOwned.h"
#include "PictureReader.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <gio/gio.h>

namespace perchly {

namespace {

struct FoundPicture {
    QImage image;
    bool isReadable = false; ///< the file holds a picture without a thumbnail
};

QImage thumbnail(const QString &path, int side) {
    if (!QFileInfo(path).isFile()) {
        return {};
    }
    QImageReader reader(path, "png");
    const QSize size = reader.size();
    if (std::max(size.width(), size.height()) > side) {
        reader.setScaledSize(size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1}));
    }
    return reader.read();
}

FoundPicture find(const QString &path, int side, Applications &applications) {
    const gio::Owned<GFile> file(g_file_new_for_path(QFile::encodeName(path).constData()));
    const gio::Owned<GFileInfo> info(g_file_query_info(file.get(),
                                                       G_FILE_ATTRIBUTE_THUMBNAIL_PATH
                                                       "," G_FILE_ATTRIBUTE_THUMBNAIL_IS_VALID
                                                       "," G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE
                                                       "," G_FILE_ATTRIBUTE_STANDARD_ICON,
                                                       G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
    if (!info) {
        return {};
    }
    const char *found =
        g_file_info_get_attribute_byte_string(info.get(), G_FILE_ATTRIBUTE_THUMBNAIL_PATH);
    if (found != nullptr && g_file_info_get_attribute_boolean(
                                info.get(), G_FILE_ATTRIBUTE_THUMBNAIL_IS_VALID) != FALSE) {
        const QImage image = thumbnail(QFile::decodeName(found), side);
        if (!image.isNull()) {
            return {image};
        }
    }
    QStringList names;
    GIcon *icon = g_file_info_get_icon(info.get());
    if (icon != nullptr && G_IS_THEMED_ICON(icon)) {
        const char *const *name = g_themed_icon_get_names(G_THEMED_ICON(icon));
        for (; *name != nullptr; ++name) {
            names.append(QString::fromUtf8(*name));
        }
    }
    const QByteArray type = g_file_info_get_content_type(info.get());
    return {applications.themeIcon(names, side), type.startsWith("image/")};
}

class Reading : public ScheduledTask {
public:
    struct State {
        FilePictures::Completion completion;
        Task decoding;
    };
    explicit Reading(std::shared_ptr<State> state)
        : m_state(std::move(state)) {}

private:
    std::shared_ptr<State> m_state;
};

} // namespace

GioFilePictures::GioFilePictures(Applications &applications, PictureReader &reader)
    : m_applications(applications)
    , m_reader(reader) {}

Task GioFilePictures::read(const QString &path, int side, Completion completion) {
    const auto state = std::make_shared<Reading::State>();
    state->completion = std::move(completion);
    const std::weak_ptr<Reading::State> wanted = state;
    m_workers.run(
        [this, path, side, wanted] {
            return wanted.expired() ? FoundPicture() : find(path, side, m_applications);
        },
        [this, path, side, wanted](const FoundPicture &found) {
            const auto reading = wanted.lock();
            if (!reading) {
                return;
            }
            if (!found.isReadable) {
                reading->completion(found.image);
                return;
            }
            reading->decoding =
                m_reader.readAsPng(path, side, [wanted, icon = found.image](const QByteArray &png) {
                    const auto decoded = wanted.lock();
                    const QImage picture = QImage::fromData(png, "png");
                    decoded->completion(picture.isNull() ? icon : picture);
                });
        });
    return std::make_unique<Reading>(state);
}

} // namespace perchly

#include "MusicApplication.h"

#include <gio/gdesktopappinfo.h>

#include <memory>

namespace perchly {

namespace {

struct Release {
    void operator()(void *object) const { g_object_unref(object); }
    void operator()(char *text) const { g_free(text); }
};

using Application = std::unique_ptr<GAppInfo, Release>;

std::string text(const char *value) {
    return value != nullptr ? value : std::string();
}

std::optional<MusicApplication> described(GAppInfo *application) {
    if (application == nullptr || !G_IS_DESKTOP_APP_INFO(application)) {
        return std::nullopt;
    }
    std::string identifier = text(g_app_info_get_id(application));
    const std::string path = text(g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application)));
    if (path.empty()) {
        return std::nullopt;
    }
    if (identifier.ends_with(".desktop")) {
        identifier.resize(identifier.size() - std::string_view(".desktop").size());
    }
    return MusicApplication{identifier, path};
}

bool playsMusic(GAppInfo *application) {
    if (application == nullptr || !G_IS_DESKTOP_APP_INFO(application)) {
        return false;
    }
    auto *entry = G_DESKTOP_APP_INFO(application);
    const std::unique_ptr<char, Release> types(g_desktop_app_info_get_string(entry, "MimeType"));
    return isMusicPlayer(text(g_desktop_app_info_get_categories(entry)), text(types.get()));
}

Application defaultFor(const char *type) {
    return Application(g_app_info_get_default_for_type(type, FALSE));
}

std::optional<MusicApplication> firstInstalled() {
    GList *all = g_app_info_get_all();
    std::optional<MusicApplication> first;
    for (GList *entry = all; entry != nullptr; entry = entry->next) {
        auto *application = static_cast<GAppInfo *>(entry->data);
        if (g_app_info_should_show(application) && playsMusic(application)) {
            const auto found = described(application);
            // By name, so that the answer does not hang on the order of files in a folder.
            if (found && (!first || found->identifier < first->identifier)) {
                first = found;
            }
        }
    }
    g_list_free_full(all, g_object_unref);
    return first;
}

} // namespace

std::optional<MusicApplication> findMusicApplication() {
    const Application mpeg = defaultFor("audio/mpeg");
    if (playsMusic(mpeg.get())) {
        return described(mpeg.get());
    }
    const Application flac = defaultFor("audio/flac");
    if (playsMusic(flac.get())) {
        return described(flac.get());
    }
    if (auto installed = firstInstalled()) {
        return installed;
    }
    return described(mpeg ? mpeg.get() : flac.get());
}

} // namespace perchly

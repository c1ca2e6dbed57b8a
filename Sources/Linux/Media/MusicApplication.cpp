#include "MusicApplication.h"

#include "GioOwned.h"

#include <gio/gdesktopappinfo.h>

#include <algorithm>
#include <string_view>

namespace perchly {

namespace {

using Application = gio::Owned<GAppInfo>;

MusicApplication described(GAppInfo *application) {
    std::string identifier = g_app_info_get_id(application);
    if (identifier.ends_with(".desktop")) {
        identifier.resize(identifier.size() - std::string_view(".desktop").size());
    }
    return {identifier, g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application))};
}

bool has(GAppInfo *application, const char *key, std::string_view start) {
    const gio::Owned<char *> values(
        g_desktop_app_info_get_string_list(G_DESKTOP_APP_INFO(application), key, nullptr));
    for (char **value = values.get(); value != nullptr && *value != nullptr; ++value) {
        if (std::string_view(*value).starts_with(start)) {
            return true;
        }
    }
    return false;
}

bool playsMusic(GAppInfo *application) {
    for (const char *trade :
         {"Video", "TV", "Mixer", "Midi", "Recorder", "Sequencer", "AudioVideoEditing"}) {
        if (has(application, "Categories", trade)) {
            return false;
        }
    }
    return has(application, "Categories", "Player") || has(application, "MimeType", "audio/");
}

Application defaultFor(const char *type) {
    return Application(g_app_info_get_default_for_type(type, FALSE));
}

/// Sorted by name, so that the answer does not depend on the order of files in a folder.
std::optional<MusicApplication> firstInstalled() {
    GList *all = g_app_info_get_all();
    std::optional<MusicApplication> first;
    for (GList *entry = all; entry != nullptr; entry = entry->next) {
        auto *application = static_cast<GAppInfo *>(entry->data);
        if (g_app_info_should_show(application) && playsMusic(application)) {
            const MusicApplication found = described(application);
            if (!first || found.identifier < first->identifier) {
                first = found;
            }
        }
    }
    g_list_free_full(all, g_object_unref);
    return first;
}

std::string lastWord(const std::string &name) {
    return name.substr(name.rfind('.') + 1);
}

bool isSame(const std::string &name, const std::string &other) {
    return g_ascii_strcasecmp(name.c_str(), other.c_str()) == 0;
}

} // namespace

std::optional<MusicApplication> findMusicApplication() {
    const Application mpeg = defaultFor("audio/mpeg");
    const Application flac = defaultFor("audio/flac");
    for (GAppInfo *application : {mpeg.get(), flac.get()}) {
        if (application != nullptr && playsMusic(application)) {
            return described(application);
        }
    }
    if (auto installed = firstInstalled()) {
        return installed;
    }
    const Application &other = mpeg ? mpeg : flac;
    return other ? std::optional(described(other.get())) : std::nullopt;
}

bool isPlayerOf(const std::string &identifier, const std::string &busName,
                const std::string &desktopEntry) {
    constexpr std::string_view prefix = "org.mpris.MediaPlayer2.";
    std::string name = busName.substr(std::min(prefix.size(), busName.size()));
    name.resize(std::min(name.find(".instance"), name.size())); // one of several running instances
    return !identifier.empty() && (isSame(desktopEntry, identifier) || isSame(name, identifier) ||
                                   isSame(lastWord(name), lastWord(identifier)));
}

} // namespace perchly

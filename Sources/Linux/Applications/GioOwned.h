#pragma once

#include <glib-object.h>

#include <memory>

namespace perchly::gio {

struct Release {
    void operator()(char *text) const { g_free(text); }
    void operator()(char **list) const { g_strfreev(list); }
    void operator()(void *object) const { g_object_unref(object); }
    void operator()(GMainContext *context) const { g_main_context_unref(context); }
    void operator()(GKeyFile *file) const { g_key_file_unref(file); }
};

/// A reference to a GLib object, or GLib memory, released at the end of its scope.
template <class T>
using Owned = std::unique_ptr<T, Release>;

} // namespace perchly::gio

#pragma once

#include <glib-object.h>

#include <memory>

namespace perchly::gio {

struct Release {
    void operator()(void *object) const { g_object_unref(object); }
    void operator()(GMainContext *context) const { g_main_context_unref(context); }
};

/// A reference to an object of GLib's that ends with its scope.
template <class T>
using Owned = std::unique_ptr<T, Release>;

} // namespace perchly::gio

#include "LaunchContext.h"

#include "OwnEnvironment.h"

#include <gio/gdesktopappinfo.h>

namespace perchly {

namespace {

struct NoticingContext {
    GAppLaunchContext parent;
    const StartNotices *notices;
};

char *begin(GAppLaunchContext *context, GAppInfo *application, GList *) {
    const StartNotices *notices = reinterpret_cast<NoticingContext *>(context)->notices;
    if (!notices->begin || !G_IS_DESKTOP_APP_INFO(application) ||
        g_desktop_app_info_get_boolean(G_DESKTOP_APP_INFO(application), "StartupNotify") == FALSE) {
        return nullptr;
    }
    const QByteArray identifier = notices->begin(g_app_info_get_name(application));
    return identifier.isEmpty() ? nullptr : g_strdup(identifier.constData());
}

void withdraw(GAppLaunchContext *context, const char *identifier) {
    const StartNotices *notices = reinterpret_cast<NoticingContext *>(context)->notices;
    if (notices->withdraw && identifier != nullptr) {
        notices->withdraw(identifier);
    }
}

void prepareClass(void *type, void *) {
    auto *functions = static_cast<GAppLaunchContextClass *>(type);
    functions->get_startup_notify_id = begin;
    functions->launch_failed = withdraw;
}

GType contextType() {
    static const GType type = g_type_register_static_simple(
        G_TYPE_APP_LAUNCH_CONTEXT, "PerchlyLaunchContext", sizeof(GAppLaunchContextClass),
        prepareClass, sizeof(NoticingContext), nullptr, GTypeFlags(0));
    return type;
}

} // namespace

void ReleaseLaunchContext::operator()(GAppLaunchContext *context) const {
    g_object_unref(context);
}

LaunchContext makeLaunchContext(const StartNotices &notices) {
    LaunchContext context(static_cast<GAppLaunchContext *>(g_object_new(contextType(), nullptr)));
    reinterpret_cast<NoticingContext *>(context.get())->notices = &notices;
    // The first two belong to our own start.
    for (const char *name : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", bareSurfaces}) {
        g_app_launch_context_unsetenv(context.get(), name);
    }
    return context;
}

} // namespace perchly

#include "LaunchContext.h"

#include "OwnEnvironment.h"

#include <gio/gdesktopappinfo.h>

namespace perchly {

namespace {

struct NoticingContext {
    GAppLaunchContext parent;
    const StartNotices *notices;
};

constexpr const char *tokenName = "XDG_ACTIVATION_TOKEN";

char *begin(GAppLaunchContext *context, GAppInfo *application, GList *) {
    // GIO passes it on to services, too.
    const void *token = g_object_get_data(G_OBJECT(context), tokenName);
    if (token != nullptr) {
        return g_strdup(static_cast<const char *>(token));
    }
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
    for (const char *name : {"DESKTOP_STARTUP_ID", tokenName, bareSurfaces}) {
        g_app_launch_context_unsetenv(context.get(), name);
    }
    const QByteArray token = notices.token ? notices.token() : QByteArray();
    if (!token.isEmpty()) {
        g_app_launch_context_setenv(context.get(), tokenName, token.constData());
        g_object_set_data_full(G_OBJECT(context.get()), tokenName, g_strdup(token.constData()),
                               g_free);
    }
    return context;
}

} // namespace perchly

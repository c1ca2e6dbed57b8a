#include "ScriptEngine.h"

#include "MediaSession.h"
#include "Prelude.h"

#include <duktape.h>

#include <array>
#include <memory>

namespace perchly {

namespace {

using Engine = std::unique_ptr<duk_context, decltype(&duk_destroy_heap)>;

// An error unwinds past these functions without running destructors, so they hold no object with a
// destructor while they call the engine.

MediaSession &sessionOf(duk_context *context) {
    duk_memory_functions memory;
    duk_get_memory_functions(context, &memory);
    return *static_cast<MediaSession *>(memory.udata);
}

duk_ret_t load(duk_context *context) {
    duk_push_boolean(context, sessionOf(context).load() ? 1U : 0U);
    return 1;
}

void putText(duk_context *context, const char *name, const std::string &text) {
    if (!text.empty()) {
        duk_push_lstring(context, text.data(), text.size());
        duk_put_prop_string(context, -2, name);
    }
}

void putNumber(duk_context *context, const char *name, std::optional<double> number) {
    if (number) {
        duk_push_number(context, *number);
        duk_put_prop_string(context, -2, name);
    }
}

duk_ret_t session(duk_context *context) {
    MediaSession &session = sessionOf(context);
    if (!session.load()) {
        return DUK_RET_ERROR;
    }
    const Player *player = session.find();
    if (player == nullptr) {
        duk_push_null(context);
        return 1;
    }
    duk_push_object(context);
    putText(context, "title", player->title);
    putText(context, "artist", player->artist);
    putText(context, "source", player->identity);
    putNumber(context, "elapsedTime", player->position);
    // Omit the length if the player cannot seek.
    putNumber(context, "duration", player->canSeek ? player->length : std::nullopt);
    putNumber(context, "rate", player->playback == Playback::Playing ? 1 : 0);
    return 1;
}

duk_ret_t send(duk_context *context) {
    const bool accepted = sessionOf(context).send(duk_to_int(context, 0));
    duk_push_boolean(context, accepted ? 1U : 0U);
    return 1;
}

duk_ret_t setElapsedTime(duk_context *context) {
    sessionOf(context).setElapsedTime(duk_to_number(context, 0));
    return 0;
}

bool installBridge(duk_context *context) {
    struct Native {
        const char *name;
        duk_c_function function;
        duk_idx_t arguments;
    };
    constexpr std::array natives{Native{"load", load, 0}, Native{"session", session, 0},
                                 Native{"send", send, 1},
                                 Native{"setElapsedTime", setElapsedTime, 1}};
    if (duk_peval_string(context, prelude) != DUK_EXEC_SUCCESS) {
        return false;
    }
    duk_push_global_object(context);
    duk_push_object(context);
    for (const Native &native : natives) {
        duk_push_c_function(context, native.function, native.arguments);
        duk_put_prop_string(context, -2, native.name);
    }
    const bool installed = duk_pcall(context, 2) == DUK_EXEC_SUCCESS;
    duk_pop(context);
    return installed;
}

/// Replaces `let`, which the engine does not know, by `var`.
std::string withoutLet(std::string_view script) {
    std::string text(script);
    for (auto at = text.find(" let "); at != text.npos; at = text.find(" let ", at)) {
        text.replace(at + 1, 3, "var");
    }
    return text;
}

bool evaluate(duk_context *context, const std::string &script) {
    if (duk_peval_lstring(context, script.data(), script.size()) != DUK_EXEC_SUCCESS) {
        return false;
    }
    const bool hasRun =
        duk_get_global_string(context, "run") != 0 && duk_is_function(context, -1) != 0;
    if (!hasRun) {
        duk_pop(context);
        return true;
    }
    return duk_pcall(context, 0) == DUK_EXEC_SUCCESS;
}

} // namespace

std::optional<std::string> runScript(std::string_view script, MediaSession &session) {
    const Engine engine(duk_create_heap(nullptr, nullptr, nullptr, &session, nullptr),
                        duk_destroy_heap);
    if (!engine || !installBridge(engine.get()) || !evaluate(engine.get(), withoutLet(script))) {
        return std::nullopt;
    }
    duk_size_t size = 0;
    const char *result = duk_safe_to_lstring(engine.get(), -1, &size);
    return std::string(result, size);
}

} // namespace perchly

#pragma once

#include "AudioRoute.h"
#include "PipeWireHandles.h"

#include <QString>

#include <optional>

namespace perchly {

class AudioGraph;

/// A program's connection to the server.
struct GraphClient {
    AudioGraph *graph = nullptr;
    std::uint32_t id = 0;
    ProxyPointer proxy;
    spa_hook listener{};
    AudioObject process = 0;         ///< 0 until the client has been read
    std::optional<std::int32_t> pid; ///< may be the PID inside a sandbox
    QString name;                    ///< these are empty when unknown
    QString applicationId;
    QString binary;
};

/// An output stream of a program.
struct GraphStream {
    AudioGraph *graph = nullptr;
    std::uint32_t node = 0;
    ProxyPointer proxy;
    spa_hook listener{};
    std::optional<std::uint32_t> client;
    AudioObject ownProcess = 0; ///< of a stream without a client
    bool isRunning = false;
    bool isEncoded = false;
    bool isFixed = false; ///< its program forbids moving it
};

} // namespace perchly

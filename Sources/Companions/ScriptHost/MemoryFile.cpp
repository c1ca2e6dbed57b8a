#include "SessionOwner.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace perchly {

namespace {

struct Close {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

/// Empty if there is no runtime folder.
std::string memoryPath() {
    const char *folder = std::getenv("XDG_RUNTIME_DIR");
    return folder != nullptr ? std::string(folder) + "/perchly-players" : std::string();
}

} // namespace

PlayerMemory loadMemory() {
    PlayerMemory memory;
    const std::unique_ptr<std::FILE, Close> file(std::fopen(memoryPath().c_str(), "re"));
    int playing = 0;
    int held = 0;
    std::array<char, 256> name{}; // longer than any bus name
    while (file && std::fscanf(file.get(), "%d %d %255s", &playing, &held, name.data()) == 3) {
        memory.push_back({name.data(), playing != 0, held != 0});
    }
    return memory;
}

void storeMemory(const PlayerMemory &memory) {
    const std::string path = memoryPath();
    const std::string temporary = path + "." + std::to_string(getpid());
    std::FILE *file = path.empty() ? nullptr : std::fopen(temporary.c_str(), "we");
    if (file == nullptr) {
        return;
    }
    for (const auto &[name, playing, held] : memory) {
        std::fprintf(file, "%d %d %s\n", playing, held, name.c_str());
    }
    if (std::fclose(file) != 0 || std::rename(temporary.c_str(), path.c_str()) != 0) {
        std::remove(temporary.c_str());
    }
}

} // namespace perchly

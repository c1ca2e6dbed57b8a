#include "SessionOwner.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace perchly {

namespace {

constexpr std::size_t largestFile = 8192;

std::string memoryPath() {
    const char *folder = std::getenv("XDG_RUNTIME_DIR");
    return folder != nullptr && folder[0] == '/' ? std::string(folder) + "/perchly-players"
                                                 : std::string();
}

bool isPlainFile(int descriptor) {
    struct stat facts {};
    return fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_uid == geteuid();
}

std::string contents() {
    const std::string path = memoryPath();
    const int descriptor =
        path.empty() ? -1 : open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return {};
    }
    std::array<char, largestFile> buffer{};
    const ssize_t size =
        isPlainFile(descriptor) ? read(descriptor, buffer.data(), buffer.size()) : 0;
    close(descriptor);
    return {buffer.data(), static_cast<std::size_t>(size > 0 ? size : 0)};
}

bool writeFile(const std::string &path, const std::string &text) {
    const int descriptor =
        open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (descriptor < 0) {
        return false;
    }
    const bool written =
        write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    return close(descriptor) == 0 && written;
}

} // namespace

// One player a line, with a mark in front: held ones are "=", or "*" while they still play.
constexpr std::array<std::string_view, 2> marks{"-+", "=*"};

PlayerMemory loadMemory() {
    const std::string text = contents();
    PlayerMemory memory;
    std::string_view rest = text;
    for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        if (line.size() > 1 && std::string_view("+-=*").find(line.front()) != line.npos) {
            memory.push_back({.busName = std::string(line.substr(1)),
                              .playing = line.front() == '+' || line.front() == '*',
                              .held = line.front() == '=' || line.front() == '*'});
        }
    }
    return memory;
}

void storeMemory(const PlayerMemory &memory) {
    const std::string path = memoryPath();
    if (path.empty()) {
        return;
    }
    std::string text;
    for (const RememberedPlayer &player : memory) {
        text.push_back(marks[player.held ? 1 : 0][player.playing ? 1 : 0]);
        text.append(player.busName).append("\n");
    }
    const std::string temporary = path + "." + std::to_string(getpid());
    if (!writeFile(temporary, text) || std::rename(temporary.c_str(), path.c_str()) != 0) {
        unlink(temporary.c_str());
    }
}

} // namespace perchly

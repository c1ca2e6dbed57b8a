#include "EntryFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace perchly {

namespace {

constexpr off_t largest = off_t(1024) * 1024;

class OpenFile {
public:
    // Not waiting, since opening a pipe would wait for its other end.
    OpenFile(int folder, const char *name)
        : m_descriptor(openat(folder, name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}
    ~OpenFile() {
        if (m_descriptor >= 0) {
            close(m_descriptor);
        }
    }
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;

    [[nodiscard]] int get() const { return m_descriptor; }

private:
    const int m_descriptor;
};

} // namespace

std::optional<std::string_view> EntryFile::read(int folder, const char *name) {
    const OpenFile file(folder, name);
    struct stat facts = {};
    if (file.get() < 0 || fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode) ||
        facts.st_size > largest) {
        return std::nullopt;
    }
    const auto size = std::size_t(facts.st_size);
    if (m_buffer.size() < size) {
        m_buffer.resize(size);
    }
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t count = ::read(file.get(), m_buffer.data() + filled, size - filled);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            break;
        }
        filled += std::size_t(count);
    }
    return std::string_view(m_buffer).substr(0, filled);
}

} // namespace perchly

#include "AudioRing.h"

#include <QTest>

#include <array>
#include <csignal>
#include <dlfcn.h>
#include <linux/seccomp.h>
#include <pthread.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// While set, an allocation or a lock ends the process.
volatile bool isRealTime = false;

void mustNotBeRealTime() {
    if (isRealTime) {
        __builtin_trap();
    }
}

} // namespace

extern "C" {
void *__libc_malloc(size_t size);
void __libc_free(void *memory);

[[gnu::visibility("default")]] void *malloc(size_t size) noexcept {
    mustNotBeRealTime();
    return __libc_malloc(size);
}

[[gnu::visibility("default")]] void free(void *memory) noexcept {
    mustNotBeRealTime();
    __libc_free(memory);
}

[[gnu::visibility("default")]] int pthread_mutex_lock(pthread_mutex_t *mutex) noexcept {
    mustNotBeRealTime();
    static const auto lock =
        reinterpret_cast<int (*)(pthread_mutex_t *)>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    return lock(mutex);
}
}

namespace {

/// Runs the work where any system call but its exit ends the process.
bool survivesRealTime(void (*work)(AudioRingBuffer *)) {
    AudioRingBuffer *ring = perchly_ring_create();
    const pid_t child = fork();
    if (child == 0) {
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_STRICT);
        isRealTime = true;
        work(ring);
        syscall(SYS_exit, 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    perchly_ring_destroy(ring);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void pushAndPull(AudioRingBuffer *ring) {
    static std::array<float, 80000> samples{};
    const auto list = [](uint32_t frames) {
        return AudioBufferList{1, {{2, frames * 8, samples.data()}}};
    };
    for (const float gain : {1.0F, 0.5F, 0.0F}) {
        perchly_ring_gain(ring, gain);
        for (const uint32_t frames : {0U, 64U, 500U, 1024U, 40000U}) {
            AudioBufferList buffers = list(frames);
            perchly_ring_push(ring, &buffers);
            perchly_ring_pull(ring, &buffers, frames);
            perchly_ring_pull(ring, &buffers, 100000);
        }
    }
}

} // namespace

class AudioRingRealTimeTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pushAndPullNeverAllocateLockOrMakeASystemCall() {
        QVERIFY(!survivesRealTime([](AudioRingBuffer *) { delete new volatile char; }));
        static pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
        QVERIFY(!survivesRealTime([](AudioRingBuffer *) { pthread_mutex_lock(&mutex); }));
        QVERIFY(!survivesRealTime([](AudioRingBuffer *) { getppid(); }));
        QVERIFY(survivesRealTime(pushAndPull));
    }
};

QTEST_APPLESS_MAIN(AudioRingRealTimeTest)

#include "AudioRingRealTimeTest.moc"

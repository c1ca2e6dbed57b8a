#include "DataControlClient.h"

#include "OwnCopy.h"
#include "wlr-data-control-unstable-v1-client.h"

#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace perchly {

using namespace std::chrono_literals;
using Outcome = CopyAnswer::Outcome;

namespace {

constexpr auto silenceTimeout = 3s;
constexpr auto sendingTimeout = 10s;
constexpr qsizetype maxFormats = 256;
constexpr std::size_t maxSendings = 16;

int millisecondsUntil(CopyClient::TimePoint moment) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(moment - CopyClient::TimePoint::clock::now());
    return static_cast<int>(std::max(left, 0ms).count());
}

template <class Object>
void destroy(Object *object, void (*function)(Object *)) {
    if (object != nullptr) {
        function(object);
    }
}

} // namespace

/// Writes bytes into the pipe of a program that pastes, as it reads them.
class DataControlClient::Sending {
public:
    Sending(int pipe, const QByteArray &bytes)
        : m_pipe(pipe)
        , m_bytes(bytes)
        , m_writable(pipe, QSocketNotifier::Write) {
        ::fcntl(pipe, F_SETFL, O_NONBLOCK);
        QObject::connect(&m_writable, &QSocketNotifier::activated, &m_writable,
                         [this] { write(); });
        m_timeout.setSingleShot(true);
        QObject::connect(&m_timeout, &QTimer::timeout, &m_timeout, [this] { end(); });
        m_timeout.start(sendingTimeout);
    }
    ~Sending() { end(); }
    Sending(const Sending &) = delete;
    Sending &operator=(const Sending &) = delete;

    [[nodiscard]] bool hasEnded() const { return m_pipe < 0; }

private:
    void write() {
        const QByteArrayView left = QByteArrayView(m_bytes).sliced(m_sent);
        const ssize_t written = ::write(m_pipe, left.data(), size_t(left.size()));
        m_sent += std::max<ssize_t>(written, 0);
        if (m_sent == m_bytes.size() || (written < 0 && errno != EAGAIN && errno != EINTR)) {
            end();
        }
    }

    void end() {
        m_writable.setEnabled(false);
        m_timeout.stop();
        if (m_pipe >= 0) {
            ::close(std::exchange(m_pipe, -1));
        }
    }

    int m_pipe;
    QByteArray m_bytes;
    qsizetype m_sent = 0;
    QSocketNotifier m_writable;
    QTimer m_timeout;
};

struct DataControlClient::Listeners {
    static DataControlClient *client(void *data) { return static_cast<DataControlClient *>(data); }

    static void global(void *data, wl_registry *registry, uint32_t name, const char *interface,
                       uint32_t version) {
        client(data)->bind(registry, name, interface, version);
    }
    static void globalRemoved(void * /*data*/, wl_registry * /*registry*/, uint32_t /*name*/) {}
    static constexpr wl_registry_listener registry{global, globalRemoved};

    static void format(void *data, zwlr_data_control_offer_v1 *object, const char *name) {
        auto &offers = client(data)->m_offers;
        const auto offer = std::ranges::find(offers, object, &Offer::object);
        if (offer != offers.end() && offer->formats.size() < maxFormats) {
            offer->formats.append(name);
        }
    }
    static constexpr zwlr_data_control_offer_v1_listener offer{format};

    static void offered(void *data, zwlr_data_control_device_v1 * /*device*/,
                        zwlr_data_control_offer_v1 *object) {
        client(data)->m_offers.push_back({object});
        zwlr_data_control_offer_v1_add_listener(object, &offer, data);
    }
    static void copied(void *data, zwlr_data_control_device_v1 * /*device*/,
                       zwlr_data_control_offer_v1 *object) {
        client(data)->select(PasteboardSource::Copied, object);
    }
    static void selected(void *data, zwlr_data_control_device_v1 * /*device*/,
                         zwlr_data_control_offer_v1 *object) {
        client(data)->select(PasteboardSource::Selected, object);
    }
    static void finished(void *data, zwlr_data_control_device_v1 *device) {
        zwlr_data_control_device_v1_destroy(device);
        client(data)->m_device = nullptr;
    }
    static constexpr zwlr_data_control_device_v1_listener device{offered, copied, finished,
                                                                 selected};

    static void sent(void *data, zwlr_data_control_source_v1 * /*source*/, const char *name,
                     int32_t descriptor) {
        client(data)->send(name, descriptor);
    }
    static void cancelled(void *data, zwlr_data_control_source_v1 *object) {
        zwlr_data_control_source_v1_destroy(object);
        if (client(data)->m_source == object) {
            client(data)->m_source = nullptr;
            client(data)->m_own.reset();
        }
    }
    static constexpr zwlr_data_control_source_v1_listener source{sent, cancelled};
};

DataControlClient::DataControlClient(Changed changed)
    : m_display(wl_display_connect(nullptr), wl_display_disconnect)
    , m_changed(std::move(changed)) {
    if (!m_display) {
        return;
    }
    // A program may close the pipe through which it pastes.
    sigset_t pipes;
    sigemptyset(&pipes);
    sigaddset(&pipes, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipes, nullptr);
    wl_registry *registry = wl_display_get_registry(m_display.get());
    wl_registry_add_listener(registry, &Listeners::registry, this);
    wl_display_roundtrip(m_display.get());
    wl_registry_destroy(registry);
    if (m_manager != nullptr && m_seat != nullptr) {
        m_device = zwlr_data_control_manager_v1_get_data_device(m_manager, m_seat);
        zwlr_data_control_device_v1_add_listener(m_device, &Listeners::device, this);
        const Changed later = std::exchange(m_changed, [](const CopyChange &) {});
        wl_display_roundtrip(m_display.get()); // reports the copy that exists already
        m_changed = later;
    }
}

DataControlClient::~DataControlClient() {
    m_sendings.clear();
    for (const Offer &offer : m_offers) {
        zwlr_data_control_offer_v1_destroy(offer.object);
    }
    destroy(m_source, zwlr_data_control_source_v1_destroy);
    destroy(m_device, zwlr_data_control_device_v1_destroy);
    destroy(m_manager, zwlr_data_control_manager_v1_destroy);
    destroy(m_seat, wl_seat_destroy);
}

void DataControlClient::bind(wl_registry *registry, quint32 name, const QByteArray &interface,
                             quint32 version) {
    // The same protocol under the names of the standard.
    static const wl_interface ext = [] {
        wl_interface renamed = zwlr_data_control_manager_v1_interface;
        renamed.name = "ext_data_control_manager_v1";
        renamed.version = 1;
        return renamed;
    }();
    const auto bindAs = [&](const wl_interface &as, uint32_t known) {
        return wl_registry_bind(registry, name, &as, known);
    };
    if (interface == wl_seat_interface.name && m_seat == nullptr) {
        m_seat = static_cast<wl_seat *>(bindAs(wl_seat_interface, 1));
    } else if (m_manager == nullptr && interface == ext.name) {
        m_manager = static_cast<zwlr_data_control_manager_v1 *>(bindAs(ext, 1));
    } else if (m_manager == nullptr && interface == zwlr_data_control_manager_v1_interface.name) {
        m_manager = static_cast<zwlr_data_control_manager_v1 *>(
            bindAs(zwlr_data_control_manager_v1_interface, std::min(version, 2U)));
    }
}

bool DataControlClient::isAlive() const {
    return m_device != nullptr && wl_display_get_error(m_display.get()) == 0;
}

int DataControlClient::descriptor() const {
    return wl_display_get_fd(m_display.get());
}

void DataControlClient::shutDown() const {
    if (m_display) {
        ::shutdown(descriptor(), SHUT_RDWR);
    }
}

void DataControlClient::handleEvents() {
    waitFor(-1, TimePoint::clock::now());
    std::erase_if(m_sendings, [](const auto &sending) { return sending->hasEnded(); });
}

/// Dispatches events until the pipe is readable, closed, or the time is over. True in the first two
/// cases.
bool DataControlClient::waitFor(int pipe, TimePoint latest) {
    wl_display *display = m_display.get();
    while (isAlive() && !(pipe >= 0 && m_isInterrupted)) {
        while (wl_display_prepare_read(display) != 0) {
            wl_display_dispatch_pending(display);
        }
        wl_display_flush(display);
        pollfd watched[2] = {{descriptor(), POLLIN, 0}, {pipe, POLLIN, 0}};
        const int ready = ::poll(watched, 2, millisecondsUntil(latest));
        if ((watched[0].revents & (POLLIN | POLLHUP | POLLERR)) != 0) {
            wl_display_read_events(display);
        } else {
            wl_display_cancel_read(display);
        }
        wl_display_dispatch_pending(display);
        if (watched[1].revents != 0) {
            return true;
        }
        if (ready <= 0) {
            break;
        }
    }
    return false;
}

std::optional<QByteArrayList> DataControlClient::offered(PasteboardSource source,
                                                         const QByteArrayList &formats,
                                                         TimePoint /*latest*/) {
    const Offer *offer = current(source);
    if (offer == nullptr) {
        return std::nullopt;
    }
    QByteArrayList result;
    std::ranges::copy_if(formats, std::back_inserter(result),
                         [&](const QByteArray &name) { return offer->formats.contains(name); });
    return result;
}

CopyAnswer DataControlClient::fetch(PasteboardSource source, const QByteArray &format,
                                    qsizetype maxBytes, TimePoint latest) {
    const Offer *offer = current(source);
    int pipe[2];
    if (offer == nullptr || ::pipe2(pipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        return {};
    }
    zwlr_data_control_offer_v1_receive(offer->object, format.constData(), pipe[1]);
    wl_display_flush(m_display.get());
    ::close(pipe[1]);
    m_isInterrupted = false;
    CopyAnswer answer;
    std::array<char, 64 * 1024> part{};
    while (waitFor(pipe[0], std::min(TimePoint::clock::now() + silenceTimeout, latest))) {
        const ssize_t size = ::read(pipe[0], part.data(), part.size());
        if (size == 0) {
            answer.outcome = Outcome::Delivered;
            break;
        }
        if (size < 0 && errno != EAGAIN && errno != EINTR) {
            break;
        }
        answer.bytes.append(part.data(), std::max<ssize_t>(size, 0));
        if (answer.bytes.size() > maxBytes) {
            answer = {.outcome = Outcome::TooLong};
            break;
        }
    }
    ::close(pipe[0]);
    return answer.outcome == Outcome::Silent ? CopyAnswer{} : answer;
}

DataControlClient::Offer *DataControlClient::current(PasteboardSource source) {
    auto *object = source == PasteboardSource::Copied ? m_copied : m_selected;
    const auto found = std::ranges::find(m_offers, object, &Offer::object);
    return object == nullptr || found == m_offers.end() ? nullptr : &*found;
}

void DataControlClient::select(PasteboardSource source, zwlr_data_control_offer_v1 *object) {
    auto &selected = source == PasteboardSource::Copied ? m_copied : m_selected;
    selected = object;
    // An offer is current from its announcement until the next one of its kind.
    std::erase_if(m_offers, [this](const Offer &offer) {
        const bool isOver = offer.object != m_copied && offer.object != m_selected;
        if (isOver) {
            zwlr_data_control_offer_v1_destroy(offer.object);
        }
        return isOver;
    });
    if (source == PasteboardSource::Selected) {
        return;
    }
    m_isInterrupted = true;
    const Offer *offer = current(source);
    CopyChange change{.time = std::chrono::duration_cast<std::chrono::milliseconds>(
                          TimePoint::clock::now().time_since_epoch())};
    if (offer == nullptr) {
        change.kind = CopyChange::Kind::Released;
    } else if (m_source != nullptr &&
               offer->formats.contains(QByteArray(pasteboardtype::own.data()))) {
        change.client = ownClient;
    }
    m_changed(change);
}

void DataControlClient::offer(std::unique_ptr<OwnCopy> copy) {
    if (!isAlive()) {
        return;
    }
    m_own = std::move(copy);
    m_source = nullptr; // cancelled() destroys it
    if (m_own) {
        m_source = zwlr_data_control_manager_v1_create_data_source(m_manager);
        zwlr_data_control_source_v1_add_listener(m_source, &Listeners::source, this);
        const QStringList formats = m_own->formats();
        for (const QString &format : formats) {
            zwlr_data_control_source_v1_offer(m_source, format.toUtf8().constData());
        }
    }
    zwlr_data_control_device_v1_set_selection(m_device, m_source);
    wl_display_flush(m_display.get());
}

void DataControlClient::send(const QByteArray &format, int descriptor) {
    if (!m_own || m_sendings.size() >= maxSendings) {
        ::close(descriptor);
        return;
    }
    m_sendings.push_back(
        std::make_unique<Sending>(descriptor, m_own->data(QString::fromUtf8(format))));
}

} // namespace perchly

#include "WaylandPasteboard.h"

#include "DataControlClient.h"
#include "OwnCopy.h"

namespace perchly {

WaylandPasteboard::WaylandPasteboard(QObject *parent)
    : ReaderPasteboard(
          [](CopyClient::Changed changed) {
              return std::make_unique<DataControlClient>(std::move(changed));
          },
          parent) {}

void WaylandPasteboard::offer(OwnCopy *copy) {
    withClient([owned = std::make_shared<std::unique_ptr<OwnCopy>>(copy)](CopyClient &client) {
        static_cast<DataControlClient &>(client).offer(std::move(*owned));
    });
}

bool WaylandPasteboard::isOurs(quint32 client) const {
    return client == DataControlClient::ownClient;
}

} // namespace perchly

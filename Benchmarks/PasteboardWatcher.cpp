// Reads every text and image that other programs copy, as the clipboard's history does.

#include "WaylandPasteboard.h"
#include "X11Pasteboard.h"

#include <QCoreApplication>

#include <memory>

int main(int argc, char **argv) {
    using namespace perchly;
    QCoreApplication application(argc, argv);
    std::unique_ptr<Pasteboard> pasteboard = std::make_unique<X11Pasteboard>();
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) {
        pasteboard = std::make_unique<WaylandPasteboard>();
    }
    Task reading;
    QObject::connect(pasteboard.get(), &Pasteboard::changed, &application, [&] {
        reading = pasteboard->read({.unwanted = {pasteboardtype::concealed},
                                    .maxImageBytes = 5'000'000,
                                    .maxTextBytes = 100'000},
                                   [](const PasteboardContent &) {});
    });
    return QCoreApplication::exec();
}

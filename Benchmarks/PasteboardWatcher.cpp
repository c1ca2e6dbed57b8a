// Reads every text and image that other programs copy, as the clipboard's history does.

#include "X11Pasteboard.h"

#include <QCoreApplication>

int main(int argc, char **argv) {
    using namespace perchly;
    QCoreApplication application(argc, argv);
    X11Pasteboard pasteboard;
    Task reading;
    QObject::connect(&pasteboard, &Pasteboard::changed, &application, [&] {
        reading = pasteboard.read({.unwanted = {pasteboardtype::concealed},
                                   .maxImageBytes = 5'000'000,
                                   .maxTextBytes = 100'000},
                                  [](const PasteboardContent &) {});
    });
    return QCoreApplication::exec();
}

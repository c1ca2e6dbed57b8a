#include "Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    perchly::fuzz({reinterpret_cast<const char *>(data), qsizetype(size)});
    return 0;
}

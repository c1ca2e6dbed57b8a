#include "BusValue.h"

#include <systemd/sd-bus.h>

#include <cstring>

namespace perchly {

namespace {

constexpr std::size_t longestList = 16;

template <class T>
bool readNumber(sd_bus_message *message, char type, BusValue &value) {
    T number{};
    if (sd_bus_message_read_basic(message, type, &number) < 0) {
        return false;
    }
    value = static_cast<std::int64_t>(number);
    return true;
}

bool readStrings(sd_bus_message *message, BusValue &value) {
    std::vector<std::string> strings;
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "s") < 0) {
        return false;
    }
    const char *text = nullptr;
    int got = 0;
    while ((got = sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &text)) > 0) {
        if (strings.size() < longestList) {
            strings.emplace_back(text);
        }
    }
    value = std::move(strings);
    return got == 0 && sd_bus_message_exit_container(message) >= 0;
}

bool readContents(sd_bus_message *message, const char *type, BusValue &value) {
    if (std::strcmp(type, "as") == 0) {
        return readStrings(message, value);
    }
    switch (std::strlen(type) == 1 ? type[0] : '\0') {
    case 'b': {
        int flag = 0;
        const bool read = sd_bus_message_read_basic(message, 'b', &flag) >= 0;
        value = flag != 0;
        return read;
    }
    case 'd': {
        double number = 0;
        const bool read = sd_bus_message_read_basic(message, 'd', &number) >= 0;
        value = number;
        return read;
    }
    case 's':
    case 'o': {
        const char *text = "";
        const bool read = sd_bus_message_read_basic(message, type[0], &text) >= 0;
        value = std::string(text);
        return read;
    }
    case 'y':
        return readNumber<std::uint8_t>(message, 'y', value);
    case 'n':
        return readNumber<std::int16_t>(message, 'n', value);
    case 'q':
        return readNumber<std::uint16_t>(message, 'q', value);
    case 'i':
        return readNumber<std::int32_t>(message, 'i', value);
    case 'u':
        return readNumber<std::uint32_t>(message, 'u', value);
    case 'x':
        return readNumber<std::int64_t>(message, 'x', value);
    case 't':
        return readNumber<std::uint64_t>(message, 't', value);
    default:
        value = std::monostate();
        return sd_bus_message_skip(message, type) >= 0;
    }
}

} // namespace

bool readVariant(sd_bus_message *message, BusValue &value) {
    char type = 0;
    const char *contents = nullptr;
    return sd_bus_message_peek_type(message, &type, &contents) > 0 && type == SD_BUS_TYPE_VARIANT &&
           sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, contents) >= 0 &&
           readContents(message, contents, value) && sd_bus_message_exit_container(message) >= 0;
}

void visitEntries(sd_bus_message *message, const EntryVisitor &visitor) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") < 0) {
        return;
    }
    while (sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv") > 0) {
        const char *key = nullptr;
        if (sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &key) < 0 ||
            (!visitor(key, message) && sd_bus_message_skip(message, "v") < 0) ||
            sd_bus_message_exit_container(message) < 0) {
            return;
        }
    }
    sd_bus_message_exit_container(message);
}

bool visitVariantEntries(sd_bus_message *message, const EntryVisitor &visitor) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, "a{sv}") <= 0) {
        return false;
    }
    visitEntries(message, visitor);
    return sd_bus_message_exit_container(message) >= 0;
}

std::string textOf(const BusValue &value) {
    const auto *text = std::get_if<std::string>(&value);
    return text != nullptr ? *text : std::string();
}

std::optional<double> numberOf(const BusValue &value) {
    if (const auto *number = std::get_if<double>(&value)) {
        return *number;
    }
    if (const auto *number = std::get_if<std::int64_t>(&value)) {
        return static_cast<double>(*number);
    }
    return std::nullopt;
}

bool isTrue(const BusValue &value) {
    const auto *flag = std::get_if<bool>(&value);
    return flag != nullptr && *flag;
}

} // namespace perchly

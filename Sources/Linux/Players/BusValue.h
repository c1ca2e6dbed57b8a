#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct sd_bus_message;

namespace perchly {

/// A property's value as far as players have use for it. Every number that is not a double is an
/// integer here, object paths are strings, and what is of any other type is nothing.
using BusValue =
    std::variant<std::monostate, bool, std::int64_t, double, std::string, std::vector<std::string>>;

/// Reads the variant at the message's position and goes past it. False when the message is broken.
[[nodiscard]] bool readVariant(sd_bus_message *message, BusValue &value);

/// Walks through the dictionary (string to variant) at the message's position. The visitor is given
/// the message in front of each value and either reads it with `readVariant` or another dictionary
/// inside it with `visitVariantEntries`, or returns false to have it left out.
using EntryVisitor = std::function<bool(std::string_view key, sd_bus_message *message)>;
void visitEntries(sd_bus_message *message, const EntryVisitor &visitor);

/// The same for a dictionary inside the variant at the message's position; false when it holds
/// something else, and then the position is as it was.
[[nodiscard]] bool visitVariantEntries(sd_bus_message *message, const EntryVisitor &visitor);

/// The value if it is of that kind; numbers of either kind count as both.
[[nodiscard]] std::string textOf(const BusValue &value);
[[nodiscard]] std::optional<double> numberOf(const BusValue &value);
[[nodiscard]] bool isTrue(const BusValue &value);

} // namespace perchly

#include "ScriptText.h"

#include <cctype>
#include <cstdint>

namespace perchly {

namespace {

std::uint32_t byteAt(std::string_view text, std::size_t index) {
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
}

bool continues(std::uint32_t byte) {
    return (byte & 0xC0U) == 0x80U;
}

void appendUnit(std::string &text, std::uint32_t unit) {
    text.push_back(static_cast<char>(0xE0U | (unit >> 12U)));
    text.push_back(static_cast<char>(0x80U | ((unit >> 6U) & 0x3FU)));
    text.push_back(static_cast<char>(0x80U | (unit & 0x3FU)));
}

/// The surrogate at the start of the text; 0 when there is another character.
std::uint32_t surrogate(std::string_view text) {
    if (byteAt(text, 0) != 0xED || byteAt(text, 1) < 0xA0 || !continues(byteAt(text, 2))) {
        return 0;
    }
    return 0xD000U | ((byteAt(text, 1) & 0x3FU) << 6U) | (byteAt(text, 2) & 0x3FU);
}

bool isNamePart(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_' ||
           character == '$' || static_cast<unsigned char>(character) >= 0x80;
}

/// The length of the string or comment that starts here; 0 for anything else.
std::size_t quotedLength(std::string_view text) {
    const char quote = text.front();
    if (quote == '\'' || quote == '"' || quote == '`') {
        std::size_t end = 1;
        while (end < text.size() && text[end] != quote) {
            end += text[end] == '\\' ? 2 : 1;
        }
        return std::min(end + 1, text.size());
    }
    const bool line = text.starts_with("//");
    if (!line && !text.starts_with("/*")) {
        return 0;
    }
    const std::size_t end = line ? text.find('\n') : text.find("*/", 2);
    return end == std::string_view::npos ? text.size() : end + (line ? 1 : 2);
}

bool declares(std::string_view text) {
    if (!text.starts_with("let") || text.size() < 5) {
        return false;
    }
    const std::size_t name = text.find_first_not_of(" \t\r\n", 3);
    return name != std::string_view::npos &&
           (name > 3 ? isNamePart(text[name]) || text[name] == '[' || text[name] == '{'
                     : text[name] == '[' || text[name] == '{');
}

} // namespace

std::string toEngine(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t index = 0; index < utf8.size();) {
        if (byteAt(utf8, index) < 0xF0 || index + 3 >= utf8.size()) {
            text.push_back(utf8[index++]);
            continue;
        }
        const std::uint32_t point =
            ((byteAt(utf8, index) & 0x07U) << 18U) | ((byteAt(utf8, index + 1) & 0x3FU) << 12U) |
            ((byteAt(utf8, index + 2) & 0x3FU) << 6U) | (byteAt(utf8, index + 3) & 0x3FU);
        appendUnit(text, 0xD800U + ((point - 0x10000U) >> 10U));
        appendUnit(text, 0xDC00U + ((point - 0x10000U) & 0x3FFU));
        index += 4;
    }
    return text;
}

std::string fromEngine(std::string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    while (!text.empty()) {
        const std::uint32_t high = surrogate(text);
        if (high == 0) {
            utf8.push_back(text.front());
            text.remove_prefix(1);
            continue;
        }
        const std::uint32_t low = surrogate(text.substr(3));
        if (high < 0xDC00 && low >= 0xDC00) {
            const std::uint32_t point = 0x10000U + ((high - 0xD800U) << 10U) + (low - 0xDC00U);
            utf8.push_back(static_cast<char>(0xF0U | (point >> 18U)));
            utf8.push_back(static_cast<char>(0x80U | ((point >> 12U) & 0x3FU)));
            utf8.push_back(static_cast<char>(0x80U | ((point >> 6U) & 0x3FU)));
            utf8.push_back(static_cast<char>(0x80U | (point & 0x3FU)));
            text.remove_prefix(6);
        } else {
            utf8.append("\xEF\xBF\xBD");
            text.remove_prefix(3);
        }
    }
    return utf8;
}

std::string withoutLet(std::string_view script) {
    std::string text;
    text.reserve(script.size());
    char before = '\n';
    while (!script.empty()) {
        std::size_t taken = quotedLength(script);
        if (taken > 0) {
            text.append(script.substr(0, taken));
        } else if (!isNamePart(before) && before != '.' && declares(script)) {
            text.append("var");
            taken = 3;
        } else {
            text.push_back(script.front());
            taken = 1;
        }
        before = text.back();
        script.remove_prefix(taken);
    }
    return text;
}

} // namespace perchly

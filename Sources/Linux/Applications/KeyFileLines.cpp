#include "KeyFileLines.h"

#include <glib.h>

#include <algorithm>
#include <utility>

namespace perchly {

namespace {

bool isSpace(char character) {
    return g_ascii_isspace(character) != FALSE;
}

bool isAsciiAlphanumeric(char character) {
    return g_ascii_isalnum(character) != FALSE;
}

std::string_view withoutLeadingSpace(std::string_view text) {
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

std::string_view withoutTrailingSpace(std::string_view text) {
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool isLanguage(std::string_view text) {
    while (!text.empty()) {
        const char first = text.front();
        if (isAsciiAlphanumeric(first) || first == '-' || first == '_' || first == '.' ||
            first == '@') {
            text.remove_prefix(1);
            continue;
        }
        const gunichar character = g_utf8_get_char_validated(text.data(), gssize(text.size()));
        if (character > 0x10ffff || g_unichar_isalnum(character) == FALSE) {
            return false;
        }
        text.remove_prefix(std::size_t(g_utf8_skip[static_cast<unsigned char>(first)]));
    }
    return true;
}

bool isKey(std::string_view key) {
    const auto bracket = std::ranges::find_if(
        key, [](char character) { return character == '[' || character == ']'; });
    const auto end = std::size_t(bracket - key.begin());
    if (end == 0 || end == key.size()) {
        return end > 0;
    }
    return key[end - 1] != ' ' && key[end] == '[' && key.back() == ']' &&
           isLanguage(key.substr(end + 1, key.size() - end - 2));
}

KeyFileLine groupIn(std::string_view line) {
    const std::size_t end = line.find(']');
    if (end == std::string_view::npos ||
        line.find_first_not_of(" \t", end + 1) != std::string_view::npos) {
        return {.kind = KeyFileLine::Kind::Broken};
    }
    const std::string_view name = line.substr(1, end - 1);
    const auto forbidden = [](char character) {
        return character == '[' || g_ascii_iscntrl(character) != FALSE;
    };
    if (name.empty() || std::ranges::any_of(name, forbidden)) {
        return {.kind = KeyFileLine::Kind::Broken};
    }
    return {.kind = KeyFileLine::Kind::Group, .key = name};
}

KeyFileLine lineIn(std::string_view line) {
    line = withoutLeadingSpace(line);
    if (line.empty() || line.front() == '#') {
        return {};
    }
    if (line.front() == '[') {
        return groupIn(line);
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return {.kind = KeyFileLine::Kind::Broken};
    }
    const std::string_view key = withoutTrailingSpace(line.substr(0, equals));
    if (!isKey(key)) {
        return {.kind = KeyFileLine::Kind::Broken};
    }
    return {.kind = KeyFileLine::Kind::Value,
            .key = key,
            .value = withoutLeadingSpace(line.substr(equals + 1))};
}

bool isUtf8(std::string_view text) {
    return g_utf8_validate_len(text.data(), text.size(), nullptr) != FALSE;
}

/// What stands for the character after a backslash; none for one that means nothing.
std::optional<char> unescaped(char character) {
    switch (character) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    case '\\':
        return '\\';
    default:
        return std::nullopt;
    }
}

/// Appends the character or escape that the text begins with, and takes it off the text.
void appendNext(std::string &result, std::string_view &text) {
    if (text.front() != '\\' || text.size() == 1) {
        if (text.front() != '\\') {
            result += text.front();
        }
        text.remove_prefix(1);
        return;
    }
    if (const auto character = unescaped(text[1])) {
        result += *character;
    } else {
        result += text.substr(0, 2);
    }
    text.remove_prefix(2);
}

} // namespace

std::optional<KeyFileLine> takeKeyFileLine(std::string_view &text) {
    if (text.empty()) {
        return std::nullopt;
    }
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (end != std::string_view::npos && line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return lineIn(line);
}

std::optional<std::string> keyFileText(std::string_view value) {
    if (value.data() == nullptr || !isUtf8(value)) {
        return std::nullopt;
    }
    if (value.find('\\') == std::string_view::npos) {
        return std::string(value);
    }
    std::string text;
    while (!value.empty()) {
        appendNext(text, value);
    }
    return text;
}

bool keyFileBoolean(std::string_view value) {
    const std::string_view word = withoutTrailingSpace(value);
    return word == "true" || word == "1";
}

std::optional<std::vector<std::string>> keyFileList(std::string_view value) {
    if (value.data() == nullptr || !isUtf8(value)) {
        return std::nullopt;
    }
    std::vector<std::string> list;
    std::string element;
    while (!value.empty()) {
        if (value.front() == ';') {
            list.push_back(std::exchange(element, {}));
            value.remove_prefix(1);
        } else if (value.starts_with("\\;")) {
            element += ';';
            value.remove_prefix(2);
        } else {
            appendNext(element, value);
        }
    }
    if (!element.empty()) {
        list.push_back(element);
    }
    return list;
}

} // namespace perchly

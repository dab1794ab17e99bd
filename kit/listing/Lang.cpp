#include "kit/listing/Lang.h"

#include <string_view>
#include <utility>

namespace tessivo::Lang {

namespace {

constexpr const char* english = "en";
constexpr const char* spanish = "es";

std::string& systemLanguage() {
    static std::string code = english;
    return code;
}

std::optional<std::string>& threadOverride() {
    static thread_local std::optional<std::string> code;
    return code;
}

/// "es-MX" of the locale "es_MX.UTF-8@euro"; English for the locale without a language.
std::string languageOf(std::string_view locale) {
    std::string language(locale.substr(0, locale.find_first_of(".@")));
    if (language == "C" || language == "POSIX") return english;
    for (char& letter : language)
        if (letter == '_') letter = '-';
    return language;
}

} // namespace

std::string fromPreferred(const std::vector<std::string>& preferred) {
    return !preferred.empty() && preferred.front().starts_with(spanish) ? spanish : english;
}

std::vector<std::string> preferred(const std::function<const char*(const char*)>& variable) {
    std::vector<std::string> languages;
    const auto add = [&](std::string_view locale) {
        if (!locale.empty()) languages.push_back(languageOf(locale));
    };
    const auto value = [&](const char* name) {
        const char* text = variable(name);
        return std::string_view(text ? text : "");
    };
    for (std::string_view rest = value("LANGUAGE"); !rest.empty();) {
        const std::size_t end = rest.find(':');
        add(rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (value(name).empty()) continue;
        add(value(name));
        break;
    }
    return languages;
}

const std::string& system() {
    return systemLanguage();
}

void setSystem(std::string code) {
    systemLanguage() = std::move(code);
}

std::optional<std::string> override() {
    return threadOverride();
}

std::string current() {
    return threadOverride().value_or(system());
}

bool isSpanish() {
    return current() == spanish;
}

Scope::Scope(std::optional<std::string> code) : m_before(std::exchange(threadOverride(), std::move(code))) {}

Scope::~Scope() {
    threadOverride() = std::move(m_before);
}

std::function<void()> carrying(std::function<void()> operation) {
    return [code = override(), operation = std::move(operation)] {
        const Scope scope(code);
        operation();
    };
}

std::string dateText(Date date) {
    return date.longText(isSpanish() ? "es_ES" : "en_US");
}

} // namespace tessivo::Lang

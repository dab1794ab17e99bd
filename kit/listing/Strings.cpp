#include "kit/listing/Strings.h"

#include "kit/listing/Lang.h"
#include "kit/support/Files.h"
#include "kit/support/Json.h"
#include "kit/support/JsonDocument.h"

#include <exception>

namespace tessivo::Strings {

namespace {

constexpr std::uintmax_t largestTable = 1u << 20;
constexpr const char* bundleName = "TessivoKit_TessivoKit.bundle";
constexpr const char* tableName = "strings-es.json";

std::filesystem::path& resources() {
    static std::filesystem::path folder;
    return folder;
}

const std::map<std::string, std::string>& table() {
    static const std::map<std::string, std::string> spanish = [] {
        const auto inSources = std::filesystem::path(TESSIVO_RESOURCES_BUILD) / tableName;
        return loadTable({resources().empty() ? inSources : tableFile(resources()), inSources});
    }();
    return spanish;
}

/// Each "%@" of the format takes the next argument; one without an argument stays as it is.
std::string filled(const std::string& format, const std::vector<std::string>& arguments) {
    constexpr std::string_view placeholder = "%@";
    std::string text;
    std::size_t from = 0;
    for (const std::string& argument : arguments) {
        const std::size_t at = format.find(placeholder, from);
        if (at == std::string::npos) break;
        text.append(format, from, at - from).append(argument);
        from = at + placeholder.size();
    }
    return text.append(format, from);
}

} // namespace

void setResources(std::filesystem::path folder) {
    resources() = std::move(folder);
}

std::filesystem::path tableFile(const std::filesystem::path& resources) {
    return resources / bundleName / tableName;
}

std::map<std::string, std::string> loadTable(const std::vector<std::filesystem::path>& files) {
    for (const auto& file : files) {
        std::error_code ignored;
        if (!std::filesystem::exists(file, ignored)) continue;
        try {
            return parseTable(Files::read(file, largestTable));
        } catch (const std::exception&) {
            return {}; // a broken translation never stops a listing from being written
        }
    }
    return {};
}

std::map<std::string, std::string> parseTable(std::string_view json) {
    try {
        const Json::Document document(json);
        std::map<std::string, std::string> table;
        for (const Json::Value& field : document.root()) {
            if (field.type != Json::Value::Type::text) return {};
            table.insert_or_assign(std::string(field.key), std::string(field.text));
        }
        return table;
    } catch (const DecodingError&) {
        return {};
    }
}

std::string tr(const std::string& key, const std::vector<std::string>& arguments) {
    const std::string* text = &key;
    if (Lang::isSpanish()) {
        if (const auto found = table().find(key); found != table().end()) text = &found->second;
    }
    return arguments.empty() ? *text : filled(*text, arguments);
}

} // namespace tessivo::Strings

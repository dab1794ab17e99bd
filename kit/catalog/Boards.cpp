#include "kit/catalog/Boards.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tessivo::Boards {
namespace {

using Row = std::pair<std::string_view, const char*>;

constexpr Row boards[] = {
    {"apple,j274", "Macmini9,1"},      {"apple,j293", "MacBookPro17,1"},  {"apple,j313", "MacBookAir10,1"},
    {"apple,j314s", "MacBookPro18,3"}, {"apple,j314c", "MacBookPro18,4"}, {"apple,j316s", "MacBookPro18,1"},
    {"apple,j316c", "MacBookPro18,2"}, {"apple,j375c", "Mac13,1"},        {"apple,j375d", "Mac13,2"},
    {"apple,j456", "iMac21,1"},        {"apple,j457", "iMac21,2"},        {"apple,j413", "Mac14,2"},
    {"apple,j415", "Mac14,15"},        {"apple,j493", "Mac14,7"},         {"apple,j473", "Mac14,3"},
    {"apple,j474s", "Mac14,12"},       {"apple,j414s", "Mac14,9"},        {"apple,j414c", "Mac14,5"},
    {"apple,j416s", "Mac14,10"},       {"apple,j416c", "Mac14,6"},        {"apple,j475c", "Mac14,13"},
    {"apple,j475d", "Mac14,14"},       {"apple,j180d", "Mac14,8"},
};

constexpr Row chips[] = {
    {"apple,t8103", "Apple M1"},       {"apple,t6000", "Apple M1 Pro"},   {"apple,t6001", "Apple M1 Max"},
    {"apple,t6002", "Apple M1 Ultra"}, {"apple,t8112", "Apple M2"},       {"apple,t6020", "Apple M2 Pro"},
    {"apple,t6021", "Apple M2 Max"},   {"apple,t6022", "Apple M2 Ultra"},
};

template <std::size_t count>
std::optional<std::string> find(const Row (&rows)[count], const std::vector<std::string>& compatible,
                                std::size_t index) {
    if (index >= compatible.size()) return std::nullopt;
    for (const auto& [entry, value] : rows)
        if (entry == compatible[index]) return value;
    return std::nullopt;
}

} // namespace

std::vector<std::string> entries(const std::string& property) {
    std::vector<std::string> found;
    for (std::size_t start = 0; start < property.size();) {
        const std::size_t end = std::min(property.find('\0', start), property.size());
        if (end > start) found.push_back(property.substr(start, end - start));
        start = end + 1;
    }
    return found;
}

bool isApplePlatform(const std::vector<std::string>& compatible) {
    return std::find(compatible.begin(), compatible.end(), "apple,arm-platform") != compatible.end();
}

std::optional<std::string> modelID(const std::vector<std::string>& compatible) {
    return isApplePlatform(compatible) ? find(boards, compatible, 0) : std::nullopt;
}

std::optional<std::string> chip(const std::vector<std::string>& compatible) {
    if (!isApplePlatform(compatible)) return std::nullopt;
    return find(chips, compatible, 1).value_or("Apple silicon");
}

} // namespace tessivo::Boards

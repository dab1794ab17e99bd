#include "kit/catalog/SpecCatalog.h"

#include <string_view>

namespace tessivo::SpecCatalog {
namespace {

using enum MacKind;
using enum Processor;

using Texts = std::vector<std::string>;
using Sizes = std::vector<std::int64_t>;

ModelSpec silicon(MacKind kind, const char* name, Texts ids, Sizes storage) {
    return {std::move(ids), name, kind, std::move(storage), appleSilicon, {}, false, {}};
}

/// `pages` are paths of the maker's support site; the row holds the full links.
ModelSpec intelMac(MacKind kind, Processor processor, const char* name, Texts ids, Sizes storage, Texts pages,
                   Sizes fusion = {}, bool replaceableStorage = false) {
    for (std::string& page : pages)
        page.insert(0, TESSIVO_SUPPORT_HOST);
    return {std::move(ids),  name, kind, std::move(storage), processor, std::move(fusion), replaceableStorage,
            std::move(pages)};
}

std::vector<ModelSpec> table() {
    return {
        silicon(laptop, "MacBook Air (M1, 2020)", {"MacBookAir10,1"}, {256, 512, 1024, 2048}),
        silicon(laptop, "MacBook Air (M2, 2022)", {"Mac14,2"}, {256, 512, 1024, 2048}),
        silicon(laptop, "MacBook Air (15-inch, M2, 2023)", {"Mac14,15"}, {256, 512, 1024, 2048}),
        silicon(laptop, "MacBook Air (13-inch, M3, 2024)", {"Mac15,12"}, {256, 512, 1024, 2048}),
        silicon(laptop, "MacBook Air (15-inch, M3, 2024)", {"Mac15,13"}, {256, 512, 1024, 2048}),
        silicon(laptop, "MacBook Air (13-inch, M4, 2025)", {"Mac16,12"}, {256, 512, 1024, 2048}),
        silicon(laptop, "MacBook Air (15-inch, M4, 2025)", {"Mac16,13"}, {256, 512, 1024, 2048}),
        silicon(laptop, "MacBook Pro (13-inch, M1, 2020)", {"MacBookPro17,1"}, {256, 512, 1024, 2048}),
        silicon(laptop, "MacBook Pro (14-inch, 2021)", {"MacBookPro18,3", "MacBookPro18,4"},
                {512, 1024, 2048, 4096, 8192}),
        silicon(laptop, "MacBook Pro (16-inch, 2021)", {"MacBookPro18,1", "MacBookPro18,2"},
                {512, 1024, 2048, 4096, 8192}),
        silicon(laptop, "MacBook Pro (13-inch, M2, 2022)", {"Mac14,7"}, {256, 512, 1024, 2048}),
        silicon(laptop, "MacBook Pro (14-inch, 2023)", {"Mac14,5", "Mac14,9"}, {512, 1024, 2048, 4096, 8192}),
        silicon(laptop, "MacBook Pro (16-inch, 2023)", {"Mac14,6", "Mac14,10"},
                {512, 1024, 2048, 4096, 8192}),
        silicon(laptop, "MacBook Pro (14-inch, M3, Nov 2023)", {"Mac15,3"}, {512, 1024, 2048}),
        silicon(laptop, "MacBook Pro (14-inch, M3 Pro or M3 Max, Nov 2023)",
                {"Mac15,6", "Mac15,8", "Mac15,10"}, {512, 1024, 2048, 4096, 8192}),
        silicon(laptop, "MacBook Pro (16-inch, Nov 2023)", {"Mac15,7", "Mac15,9", "Mac15,11"},
                {512, 1024, 2048, 4096, 8192}),
        silicon(laptop, "MacBook Pro (14-inch, M4, 2024)", {"Mac16,1"}, {512, 1024, 2048}),
        silicon(laptop, "MacBook Pro (14-inch, M4 Pro or M4 Max, 2024)", {"Mac16,6", "Mac16,8"},
                {512, 1024, 2048, 4096, 8192}),
        silicon(laptop, "MacBook Pro (16-inch, 2024)", {"Mac16,5", "Mac16,7"}, {512, 1024, 2048, 4096, 8192}),
        silicon(allInOne, "iMac (24-inch, M1, 2021)", {"iMac21,1", "iMac21,2"}, {256, 512, 1024, 2048}),
        silicon(allInOne, "iMac (24-inch, 2023)", {"Mac15,4", "Mac15,5"}, {256, 512, 1024, 2048}),
        silicon(allInOne, "iMac (24-inch, 2024)", {"Mac16,2", "Mac16,3"}, {256, 512, 1024, 2048}),
        silicon(desktop, "Mac mini (M1, 2020)", {"Macmini9,1"}, {256, 512, 1024, 2048}),
        silicon(desktop, "Mac mini (M2, 2023)", {"Mac14,3"}, {256, 512, 1024, 2048}),
        silicon(desktop, "Mac mini (M2 Pro, 2023)", {"Mac14,12"}, {512, 1024, 2048, 4096, 8192}),
        silicon(desktop, "Mac mini (M4, 2024)", {"Mac16,10"}, {256, 512, 1024, 2048}),
        silicon(desktop, "Mac mini (M4 Pro, 2024)", {"Mac16,11"}, {512, 1024, 2048, 4096, 8192}),
        silicon(desktop, "Mac Studio (M1 Max, 2022)", {"Mac13,1"}, {512, 1024, 2048, 4096, 8192}),
        silicon(desktop, "Mac Studio (M1 Ultra, 2022)", {"Mac13,2"}, {1024, 2048, 4096, 8192}),
        silicon(desktop, "Mac Studio (M2 Max, 2023)", {"Mac14,13"}, {512, 1024, 2048, 4096, 8192}),
        silicon(desktop, "Mac Studio (M2 Ultra, 2023)", {"Mac14,14"}, {1024, 2048, 4096, 8192}),
        silicon(desktop, "Mac Studio (M4 Max, 2025)", {"Mac16,9"}, {512, 1024, 2048, 4096, 8192}),
        silicon(desktop, "Mac Studio (M3 Ultra, 2025)", {"Mac15,14"}, {1024, 2048, 4096, 8192, 16384}),
        silicon(desktop, "Mac Pro (2023)", {"Mac14,8"}, {1024, 2048, 4096, 8192}),
        intelMac(laptop, intelT2, "MacBook Air (Retina, 13-inch, 2018)", {"MacBookAir8,1"},
                 {128, 256, 512, 1536}, {"/en-us/111933"}),
        intelMac(laptop, intelT2, "MacBook Air (Retina, 13-inch, 2019)", {"MacBookAir8,2"},
                 {128, 256, 512, 1024}, {"/en-us/111948"}),
        intelMac(laptop, intelT2, "MacBook Air (Retina, 13-inch, 2020)", {"MacBookAir9,1"},
                 {256, 512, 1024, 2048}, {"/en-us/111991"}),
        intelMac(laptop, intelT2, "MacBook Pro (13-inch, 2018 or 2019, Four Thunderbolt 3 ports)",
                 {"MacBookPro15,2"}, {256, 512, 1024, 2048}, {"/en-us/111925", "/en-us/111997"}),
        intelMac(laptop, intelT2, "MacBook Pro (13-inch, 2019, Two Thunderbolt 3 ports)", {"MacBookPro15,4"},
                 {128, 256, 512, 1024, 2048}, {"/en-us/111945"}),
        intelMac(laptop, intelT2, "MacBook Pro (15-inch, 2018 or 2019)", {"MacBookPro15,1", "MacBookPro15,3"},
                 {256, 512, 1024, 2048, 4096}, {"/en-us/111949", "/en-us/111941"}),
        intelMac(laptop, intelT2, "MacBook Pro (16-inch, 2019)", {"MacBookPro16,1", "MacBookPro16,4"},
                 {512, 1024, 2048, 4096, 8192}, {"/en-us/111932"}),
        intelMac(laptop, intelT2, "MacBook Pro (13-inch, 2020, Two Thunderbolt 3 ports)", {"MacBookPro16,3"},
                 {256, 512, 1024, 2048}, {"/en-us/111981"}),
        intelMac(laptop, intelT2, "MacBook Pro (13-inch, 2020, Four Thunderbolt 3 ports)", {"MacBookPro16,2"},
                 {512, 1024, 2048, 4096}, {"/en-us/111339"}),
        intelMac(allInOne, intel, "iMac (Retina 4K, 21.5-inch, 2019)", {"iMac19,2"}, {256, 1024},
                 {"/en-us/111963"}, {1024}, true),
        intelMac(allInOne, intel, "iMac (Retina 5K, 27-inch, 2019)", {"iMac19,1"},
                 {256, 512, 1024, 2048, 3072}, {"/en-us/111998"}, {1024, 2048, 3072}, true),
        intelMac(allInOne, intelT2, "iMac (Retina 5K, 27-inch, 2020)", {"iMac20,1", "iMac20,2"},
                 {256, 512, 1024, 2048, 4096, 8192}, {"/en-us/111913"}),
        intelMac(allInOne, intelT2, "iMac Pro (2017)", {"iMacPro1,1"}, {1024, 2048, 4096}, {"/en-us/111995"}),
        intelMac(desktop, intelT2, "Mac mini (2018)", {"Macmini8,1"}, {128, 256, 512, 1024, 2048},
                 {"/en-us/111912"}),
        intelMac(desktop, intelT2, "Mac Pro (2019)", {"MacPro7,1"}, {256, 512, 1024, 2048, 4096, 8192},
                 {"/en-us/118461", "/en-us/111907"}, {}, true),
    };
}

} // namespace

const std::vector<ModelSpec>& models() {
    static const std::vector<ModelSpec> rows = table();
    return rows;
}

const std::unordered_map<std::string, const ModelSpec*>& byID() {
    static const auto map = [] {
        std::unordered_map<std::string, const ModelSpec*> entries;
        for (const ModelSpec& row : models())
            for (const std::string& id : row.ids)
                entries[id] = &row;
        return entries;
    }();
    return map;
}

const ModelSpec* spec(const std::string& modelID) {
    const auto found = byID().find(modelID);
    return found == byID().end() ? nullptr : found->second;
}

std::optional<MacKind> kind(const std::string& modelID) {
    if (const ModelSpec* row = spec(modelID)) return row->kind;
    // Newer identifiers begin with a plain "Mac" and tell no kind.
    static constexpr std::pair<std::string_view, MacKind> prefixes[] = {
        {"MacBook", laptop}, {"iMac", allInOne}, {"Macmini", desktop}, {"MacPro", desktop}};
    for (const auto& [prefix, kind] : prefixes)
        if (modelID.starts_with(prefix)) return kind;
    return std::nullopt;
}

std::string displayName(const std::string& modelID) {
    const ModelSpec* row = spec(modelID);
    return row ? row->name : modelID;
}

} // namespace tessivo::SpecCatalog

#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <string_view>
#include <vector>

namespace tessivo {

/// A fresh folder that goes away with everything in it.
class TemporaryFolder final {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "tessivo-test-XXXXXX").string();
        if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        m_path = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }

    /// A file of this folder with these bytes; gives its path.
    std::filesystem::path write(const std::string& name, std::string_view bytes) const {
        std::ofstream(m_path / name, std::ios::binary) << bytes;
        return m_path / name;
    }

private:
    std::filesystem::path m_path;
};

inline std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// The names in a folder, hidden ones too, sorted.
inline std::vector<std::string> namesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace tessivo

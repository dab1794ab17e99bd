#pragma once

#include "platform/linux/SystemTree.h"
#include "tests/TemporaryFolder.h"

#include <sstream>

namespace tessivo {

/// A computer's files unpacked into a temporary folder; tests/data/trees/README.md tells the format.
class CapturedTree final {
public:
    CapturedTree() = default;
    /// The named file of tests/data/trees.
    explicit CapturedTree(const std::string& name) {
        std::istringstream lines(
            bytesOf(std::filesystem::path(TESSIVO_TEST_DATA) / "trees" / (name + ".tree")));
        std::string line;
        int count = 0;
        while (std::getline(lines, line))
            if (!line.empty() && line.front() != '#') add(line), ++count;
        if (count == 0) throw std::runtime_error("no such tree: " + name);
    }

    SystemTree tree() const { return SystemTree(m_folder.path()); }
    std::filesystem::path path(const std::string& inside = {}) const { return m_folder.path() / inside; }

    /// One line of the format.
    void add(const std::string& line) {
        const std::size_t blank = line.find(' ');
        const auto file = path(unescaped(line.substr(0, blank)));
        const std::string sign = line.substr(blank + 1, line.find(' ', blank + 1) - blank - 1);
        const std::size_t start = blank + sign.size() + 2;
        const std::string rest = start < line.size() ? line.substr(start) : std::string();
        std::filesystem::create_directories(file.parent_path());
        if (sign == "=")
            std::ofstream(file, std::ios::binary) << unescaped(rest) << '\n';
        else if (sign == "|")
            std::ofstream(file, std::ios::binary) << unescaped(rest);
        else if (sign == "->")
            std::filesystem::create_symlink(rest, file);
        else if (sign == "/")
            std::filesystem::create_directories(file);
        else
            throw std::runtime_error("bad line: " + line);
    }
    void remove(const std::string& inside) { std::filesystem::remove_all(path(inside)); }

private:
    static std::string unescaped(const std::string& text) {
        std::string out;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text.compare(i, 2, "\\x") == 0) {
                out += char(std::stoi(text.substr(i + 2, 2), nullptr, 16));
                i += 3;
            } else if (text.compare(i, 2, "\\\\") == 0) {
                out += text[i++];
            } else {
                out += text[i];
            }
        }
        return out;
    }

    TemporaryFolder m_folder;
};

} // namespace tessivo

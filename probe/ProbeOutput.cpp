#include "probe/ProbeOutput.h"

#include "kit/support/Files.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace tessivo::ProbeOutput {

namespace {

void writeTo(std::FILE* stream, const std::string& bytes, const std::string& name) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), stream) != bytes.size() || std::fflush(stream) != 0)
        throw std::system_error(errno, std::generic_category(), name);
}

void writeFile(const std::string& bytes, const std::filesystem::path& file) {
    // A pipe or a device is written into; to replace it would be a surprise. So would a link.
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "we"),
                                                                     &std::fclose);
        if (!stream) throw std::system_error(errno, std::generic_category());
        writeTo(stream.get(), bytes, file.string());
        return;
    }
    const auto target = std::filesystem::canonical(file, error);
    Files::writeAtomically(error ? file : target, bytes);
}

} // namespace

void write(const std::string& bytes, Content content, const std::optional<std::string>& file) {
    if (!file) {
        const bool isOpenLine = content == Content::text && !bytes.ends_with('\n');
        writeTo(stdout, isOpenLine ? bytes + '\n' : bytes, "standard output");
        return;
    }
    try {
        writeFile(bytes, *file);
    } catch (const std::system_error& error) {
        throw std::runtime_error(*file + ": " + error.code().message());
    }
}

} // namespace tessivo::ProbeOutput

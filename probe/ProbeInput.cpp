#include "probe/ProbeInput.h"

#include "kit/support/Files.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace tessivo::ProbeInput {

namespace {

std::string readToTheEnd(std::FILE* stream, std::uintmax_t largest) {
    std::string bytes;
    char buffer[65536];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, stream)) {
        bytes.append(buffer, count);
        if (bytes.size() > largest) throw std::system_error(std::make_error_code(std::errc::file_too_large));
    }
    if (std::ferror(stream)) throw std::system_error(errno, std::generic_category());
    return bytes;
}

} // namespace

std::string read(const std::string& file, std::uintmax_t largest) {
    std::error_code error;
    const bool isStandardInput = file == "-";
    if (!isStandardInput && !std::filesystem::is_fifo(file, error)) return Files::read(file, largest);
    try {
        if (isStandardInput) return readToTheEnd(stdin, largest);
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "re"),
                                                                     &std::fclose);
        if (!stream) throw std::system_error(errno, std::generic_category());
        return readToTheEnd(stream.get(), largest);
    } catch (const std::system_error& fault) {
        throw std::runtime_error((isStandardInput ? "standard input" : file) + ": " + fault.code().message());
    }
}

} // namespace tessivo::ProbeInput

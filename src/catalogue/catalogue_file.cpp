// SPDX-License-Identifier: MIT
#include "catalogue/catalogue_file.h"

#include <fstream>
#include <string_view>
#include <system_error>

#include "app/text.h"

namespace quillon {

namespace {

// The shipped file has half a MB. A far larger one is something else and would fill the memory.
constexpr std::uintmax_t kMostBytes{16U << 20U};

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::optional<std::string> read_bytes(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
    const auto size = std::filesystem::file_size(path, error);
    if (error || size > kMostBytes) return std::nullopt;
    std::ifstream file{path, std::ios::binary};
    if (!file) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (file.bad()) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(file.gcount()));  // the file may have become shorter
    return bytes;
}

}  // namespace

std::optional<std::string> read_catalogue_file(const std::filesystem::path& path,
                                               const Host& host) {
    auto bytes = read_bytes(path);
    if (!bytes) return std::nullopt;
    if (!is_utf8(*bytes)) return host.from_code_page(*bytes);
    if (bytes->starts_with(kByteOrderMark)) bytes->erase(0, kByteOrderMark.size());
    return bytes;
}

}  // namespace quillon

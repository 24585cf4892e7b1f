// SPDX-License-Identifier: MIT
// What a user can name by mistake is refused before any of it is used: a folder, a pipe that would
// never end, a disk image, a program.
#include "image/text_file.h"

#include <algorithm>
#include <fstream>
#include <string_view>
#include <system_error>

#include "app/text.h"

namespace quillon {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// At most one byte more than the limit, which tells a file that is too large, or grows.
bool read_bytes(const std::filesystem::path& path, std::string& bytes) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return false;
    std::ifstream file{path, std::ios::binary};
    if (!file) return false;
    const auto size = std::filesystem::file_size(path, error);
    if (error) return false;
    bytes.resize(static_cast<std::size_t>(std::min<std::uintmax_t>(size, kMostTextBytes + 1)));
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return !file.bad();
}

}  // namespace

TextFile read_text_file(const std::filesystem::path& path, const Host& host) {
    using Problem = TextFile::Problem;
    TextFile file;
    if (!read_bytes(path, file.text)) return {.problem = Problem::NotReadable};
    if (file.text.size() > kMostTextBytes) return {.problem = Problem::TooLarge};
    if (file.text.find('\0') != std::string::npos) return {.problem = Problem::NotText};
    if (!is_utf8(file.text)) file.text = host.from_code_page(file.text);
    if (file.text.starts_with(kByteOrderMark)) file.text.erase(0, kByteOrderMark.size());
    return file;
}

}  // namespace quillon

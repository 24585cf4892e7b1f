// SPDX-License-Identifier: MIT
// A user may name a folder, an endless pipe, a disk image or a program by mistake. Each is refused
// before any of it is used.
#include "hex/text_file.h"

#include <fstream>
#include <string_view>
#include <system_error>

#include "app/text.h"

namespace quillon {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

using Problem = TextFile::Problem;

// Asks for one byte more than the file's size, which reveals a file that grows.
Problem read_bytes(const std::filesystem::path& path, std::string& bytes) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return Problem::NotReadable;
    std::ifstream file{path, std::ios::binary};
    const auto size = std::filesystem::file_size(path, error);
    if (!file || error) return Problem::NotReadable;
    if (size > kMostTextBytes) return Problem::TooLarge;
    bytes.resize(static_cast<std::size_t>(size) + 1);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    if (file.bad()) return Problem::NotReadable;
    return bytes.size() == size ? Problem::None : Problem::Changing;
}

}  // namespace

TextFile read_text_file(const std::filesystem::path& path, const Host& host) {
    TextFile file;
    const auto problem = read_bytes(path, file.text);
    if (problem != Problem::None) return {.problem = problem};
    if (file.text.find('\0') != std::string::npos) return {.problem = Problem::NotText};
    if (!is_utf8(file.text)) file.text = host.from_code_page(file.text);
    if (file.text.starts_with(kByteOrderMark)) file.text.erase(0, kByteOrderMark.size());
    return file;
}

}  // namespace quillon

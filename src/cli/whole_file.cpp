// SPDX-License-Identifier: MIT
#include "cli/whole_file.h"

#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <system_error>

namespace quillon::cli {

namespace fs = std::filesystem;

std::optional<std::string> write_whole(const fs::path& path, std::string_view content) {
    const auto reason = [] { return std::generic_category().message(errno ? errno : EIO); };
    std::error_code error;
    // A name that leads elsewhere stays; the file behind it is the one to replace.
    const fs::path target = fs::is_symlink(path, error) ? fs::weakly_canonical(path, error) : path;
    // A device or a pipe ("/dev/stdout") can't be replaced by a rename.
    const bool special = fs::exists(target, error) && !fs::is_regular_file(target, error);
    fs::path written = target;
    if (!special) written += "." + std::to_string(::getpid()) + ".tmp";
    errno = 0;
    {
        std::ofstream file{written, std::ios::binary | std::ios::trunc};
        if (!file) return reason();
        file.write(content.data(), static_cast<std::streamsize>(content.size()));
        file.close();
        if (!file) {
            const auto why = reason();
            if (!special) fs::remove(written, error);
            return why;
        }
    }
    if (special) return std::nullopt;
    fs::rename(written, target, error);
    if (!error) return std::nullopt;
    const auto why = error.message();
    fs::remove(written, error);
    return why;
}

}  // namespace quillon::cli

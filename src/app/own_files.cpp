// SPDX-License-Identifier: MIT
#include "app/own_files.h"

#include <cstdio>
#include <string>
#include <system_error>

#ifdef _WIN32
#include <fstream>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace quillon {

namespace fs = std::filesystem;

bool write_fresh(const fs::path& path, std::string_view content) {
    std::error_code error;
    if (fs::is_directory(fs::symlink_status(path, error))) return false;
    fs::remove(path, error);
    // "x" creates the file or fails: a file that has appeared since the removal is never written
    // to.
    std::FILE* const file = std::fopen(path.string().c_str(), "wbx");
    if (file == nullptr) return false;
    const bool written = std::fwrite(content.data(), 1, content.size(), file) == content.size();
    return std::fclose(file) == 0 && written;
}

#ifdef _WIN32

bool append_line(const fs::path& path, std::string_view line) {
    std::error_code ignored;
    if (fs::is_symlink(path, ignored)) return false;
    const auto before = fs::file_size(path, ignored);
    const bool existed = !ignored;
    std::ofstream file{path, std::ios::app};  // in text mode: the line ends as lines end here
    file << line << '\n';
    file.close();
    if (!file.fail()) return true;
    if (existed) fs::resize_file(path, before, ignored);
    return false;
}

#else

namespace {

constexpr int kFilePermissions = 0666;  // less the user's mask

// O_NONBLOCK: where a pipe has the file's name, the open must not wait for a reader.
int open_to_append(const fs::path& path) {
    return ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC,
                  kFilePermissions);
}

bool write_all(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = ::write(file, bytes.data(), bytes.size());
        if (count >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return false;
    }
    return true;
}

}  // namespace

bool append_line(const fs::path& path, std::string_view line) {
    const int file = open_to_append(path);
    if (file < 0) return false;
    struct stat before {};
    bool written = ::fstat(file, &before) == 0 && S_ISREG(before.st_mode);
    if (written && !write_all(file, std::string{line} + '\n')) {
        written = false;
        static_cast<void>(!::ftruncate(file, before.st_size));
    }
    return ::close(file) == 0 && written;
}

#endif

}  // namespace quillon

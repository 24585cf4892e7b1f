// SPDX-License-Identifier: MIT
#include "platform/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QString>

namespace quillon {

namespace {

// Writes without the library's buffer: a failure to flush it gives no reason, and QSaveFile misses
// it. A nearly full disk takes a part of the bytes first. Only the next write gives the reason.
bool write_all(QFileDevice& file, std::string_view content) {
    while (!content.empty()) {
        const auto count = file.write(content.data(), static_cast<qint64>(content.size()));
        if (count <= 0) return false;
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

// `finish` ends the writing, and may fail too.
template <typename File, typename Finish>
std::optional<std::string> write_to(File& file, std::string_view content, Finish finish) {
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && write_all(file, content) &&
        finish(file))
        return std::nullopt;
    return file.errorString().toStdString();
}

}  // namespace

std::optional<std::string> write_whole(const std::filesystem::path& path,
                                       std::string_view content) {
    const auto name = QString::fromStdString(path.string());
    // QString would change a name that isn't UTF-8, and a file of another name would be replaced.
    if (name.toStdString() != path.string()) return "its name is not valid UTF-8";
    const QFileInfo there{name};
    if (there.exists() && !there.isFile()) {
        QFile device{name};
        return write_to(device, content, [](const QFile&) { return true; });
    }
    QSaveFile whole{name};
    return write_to(whole, content, [](QSaveFile& file) { return file.commit(); });
}

}  // namespace quillon

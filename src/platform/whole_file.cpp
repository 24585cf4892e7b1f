// SPDX-License-Identifier: MIT
#include "platform/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QString>

namespace quillon {

namespace {

// Without a buffer of the library's own: a write that fails when that is flushed has no reason, and
// a QSaveFile doesn't count it. A disk that is nearly full takes a part first, and says why it
// doesn't take the rest only when asked again.
bool write_all(QFileDevice& file, std::string_view content) {
    while (!content.empty()) {
        const auto count = file.write(content.data(), static_cast<qint64>(content.size()));
        if (count <= 0) return false;
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

// Writing may fail as late as at the closing.
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
    // Such a name would become another one on its way, and replace what has that name.
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

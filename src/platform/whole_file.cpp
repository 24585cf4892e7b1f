// SPDX-License-Identifier: MIT
#include "platform/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QString>

namespace quillon {

namespace {

// Writing may fail as late as at the flush or the closing. A QSaveFile doesn't count a failed flush
// of its own: it would put a cut-off file in the place of a whole one.
template <typename File, typename Finish>
std::optional<std::string> write_to(File& file, std::string_view content, Finish finish) {
    const auto size = static_cast<qint64>(content.size());
    if (file.open(QIODevice::WriteOnly) && file.write(content.data(), size) == size &&
        file.flush() && finish(file))
        return std::nullopt;
    return file.errorString().toStdString();
}

}  // namespace

std::optional<std::string> write_whole(const std::filesystem::path& path,
                                       std::string_view content) {
    const auto name = QString::fromStdString(path.string());
    const QFileInfo there{name};
    if (there.exists() && !there.isFile()) {
        QFile device{name};
        return write_to(device, content, [](const QFile&) { return true; });
    }
    QSaveFile whole{name};
    return write_to(whole, content, [](QSaveFile& file) { return file.commit(); });
}

}  // namespace quillon

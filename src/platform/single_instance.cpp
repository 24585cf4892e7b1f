// SPDX-License-Identifier: MIT
#include "platform/single_instance.h"

#include <QLockFile>
#include <QString>
#include <system_error>

namespace quillon {

SingleInstance::SingleInstance(const std::filesystem::path& documents_folder) {
    std::error_code ignored;
    const auto folder = documents_folder / "QUILLON4_TEMP";
    std::filesystem::create_directories(folder, ignored);
    lock_ = std::make_unique<QLockFile>(QString::fromStdString((folder / "quillon.lock").string()));
    lock_->setStaleLockTime(0);  // a window may stay open for days; only a dead one is stale
    second_ = !lock_->tryLock() && lock_->error() == QLockFile::LockFailedError;
}

SingleInstance::~SingleInstance() = default;

}  // namespace quillon

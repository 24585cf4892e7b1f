// SPDX-License-Identifier: MIT
// Detects another window that uses the same work folder.
#pragma once

#include <filesystem>
#include <memory>

class QLockFile;

namespace quillon {

// Locks the work folder for the life of the object. A lock left by a program that died is taken
// over. If no lock can be made, second() is false: start-up reports the problem of the folder
// itself.
class SingleInstance {
  public:
    // Makes the work folder, "QUILLON4_TEMP" in the documents folder, if needed.
    explicit SingleInstance(const std::filesystem::path& documents_folder);
    ~SingleInstance();

    bool second() const { return second_; }

  private:
    std::unique_ptr<QLockFile> lock_;
    bool second_ = false;
};

}  // namespace quillon

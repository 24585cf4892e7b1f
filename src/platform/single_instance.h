// SPDX-License-Identifier: MIT
// Whether another window works in the same work folder.
#pragma once

#include <filesystem>
#include <memory>

class QLockFile;

namespace quillon {

// Holds the work folder for its life. A lock left by a program that died is taken over. Where no
// lock can be made at all nobody is said to be there: start-up reports the folder itself.
class SingleInstance {
  public:
    // The folder is made if needed: "QUILLON4_TEMP" in the documents folder.
    explicit SingleInstance(const std::filesystem::path& documents_folder);
    ~SingleInstance();

    bool second() const { return second_; }

  private:
    std::unique_ptr<QLockFile> lock_;
    bool second_ = false;
};

}  // namespace quillon

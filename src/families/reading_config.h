// SPDX-License-Identifier: MIT
// Marks the configuration words as read from the device, until the read is over.
#pragma once

namespace quillon {

// The words are kept as the device gave them, whichever way the read ends.
class ReadingConfig {
  public:
    explicit ReadingConfig(bool& ConfigFromFile) : flag_{ConfigFromFile} {}
    ~ReadingConfig() { flag_ = false; }
    ReadingConfig(const ReadingConfig&) = delete;
    ReadingConfig& operator=(const ReadingConfig&) = delete;

  private:
    bool& flag_;
};

}  // namespace quillon

// SPDX-License-Identifier: MIT
// A settings store that never makes the window wait for the disk.
//
// The store's write returns only when the value is on the disk. That takes milliseconds, and up to
// a second on a busy disk. Here a thread does the writing. A saved value can be read back at once.
// Values are written in the order in which they were saved, all of them before this object is
// destroyed. If several values of one key wait, only the last is written.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "app/settings.h"

namespace quillon {

class DeferredSettings : public SettingsStore {
  public:
    // `store` is used from one thread at a time.
    explicit DeferredSettings(SettingsStore& store);
    ~DeferredSettings() override;
    DeferredSettings(const DeferredSettings&) = delete;
    DeferredSettings& operator=(const DeferredSettings&) = delete;

    std::optional<std::string> read(std::string_view section, std::string_view key) override;
    // Always true: problem() reports a failed write.
    bool write(std::string_view section, std::string_view key, std::string_view value) override;
    // Covers the values written so far. Waits a moment for those still in the queue.
    std::string problem() const override;

  private:
    using Key = std::pair<std::string, std::string>;  // section, key
    struct Saved {
        Key key;
        std::string value;
    };

    void write_saved();

    SettingsStore& store_;
    mutable std::mutex store_use_;
    std::map<Key, std::optional<std::string>> known_;  // used by the calling thread only

    mutable std::mutex queue_use_;
    mutable std::condition_variable changed_;
    std::deque<Saved> queue_;  // the front is being written
    bool ending_ = false;
    std::thread writer_;
};

}  // namespace quillon

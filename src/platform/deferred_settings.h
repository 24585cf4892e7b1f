// SPDX-License-Identifier: MIT
// A settings store that never makes the window wait for the disk.
//
// A saved value is flushed to the disk before the store's write returns, which takes milliseconds
// and, where the disk is busy, a second. Here a thread of its own does that: values are read back
// at once, and written in the order in which they were saved, all before this object ends. Of
// several values of one key that wait, the last is written.
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
    // True: how the writing went shows in problem().
    bool write(std::string_view section, std::string_view key, std::string_view value) override;
    // Of the values that are written by now; waits a moment for those under way.
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
    std::map<Key, std::optional<std::string>> known_;  // of the calling thread alone

    mutable std::mutex queue_use_;
    mutable std::condition_variable changed_;
    std::deque<Saved> queue_;  // its front is the one being written
    bool ending_ = false;
    std::thread writer_;
};

}  // namespace quillon

// SPDX-License-Identifier: MIT
#include "platform/deferred_settings.h"

#include <algorithm>

namespace quillon {

namespace {

using namespace std::chrono_literals;

// How long problem() waits for the disk. A slower disk's problem is reported at the next start.
constexpr auto kAMoment = 100ms;

}  // namespace

DeferredSettings::DeferredSettings(SettingsStore& store)
    : store_{store}, writer_{[this] { write_saved(); }} {}

DeferredSettings::~DeferredSettings() {
    {
        const std::scoped_lock lock{queue_use_};
        ending_ = true;
    }
    changed_.notify_all();
    writer_.join();
}

std::optional<std::string> DeferredSettings::read(std::string_view section, std::string_view key) {
    const Key name{section, key};
    if (const auto found = known_.find(name); found != known_.end()) return found->second;
    const std::scoped_lock lock{store_use_};
    return known_[name] = store_.read(section, key);
}

// A newer value replaces one of the same key that still waits. The front of the queue stays: it may
// be on its way to the disk already.
bool DeferredSettings::write(std::string_view section, std::string_view key,
                             std::string_view value) {
    const Key name{section, key};
    known_[name] = std::string{value};
    {
        const std::scoped_lock lock{queue_use_};
        const auto same = [&name](const Saved& saved) { return saved.key == name; };
        if (!queue_.empty())
            queue_.erase(std::remove_if(queue_.begin() + 1, queue_.end(), same), queue_.end());
        queue_.push_back({name, std::string{value}});
    }
    changed_.notify_all();
    return true;
}

std::string DeferredSettings::problem() const {
    {
        std::unique_lock lock{queue_use_};
        changed_.wait_for(lock, kAMoment, [this] { return queue_.empty(); });
    }
    const std::unique_lock lock{store_use_, std::try_to_lock};
    return lock ? store_.problem() : std::string{};
}

void DeferredSettings::write_saved() {
    for (;;) {
        Saved saved;
        {
            std::unique_lock lock{queue_use_};
            changed_.wait(lock, [this] { return !queue_.empty() || ending_; });
            if (queue_.empty()) return;
            saved = queue_.front();
        }
        {
            const std::scoped_lock lock{store_use_};
            store_.write(saved.key.first, saved.key.second, saved.value);
        }
        {
            const std::scoped_lock lock{queue_use_};
            queue_.pop_front();
        }
        changed_.notify_all();
    }
}

}  // namespace quillon

// SPDX-License-Identifier: MIT
#include "link/silence_watch.h"

#include <fmt/format.h>

#include "link/link_texts.h"

namespace quillon {

void SilenceWatch::poll(std::size_t count) {
    if (reported_) return;
    const auto now = host_.now();
    if (count != count_) {
        count_ = count;
        since_ = now;
    }
    if (now - since_ <= longest_) return;
    reported_ = true;
    const auto silent = std::chrono::duration_cast<std::chrono::seconds>(now - since_);
    messages_.AddMessage(fmt::format(link_text::kSilent, silent.count()));
}

}  // namespace quillon

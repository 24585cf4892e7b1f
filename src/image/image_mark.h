// SPDX-License-Identifier: MIT
// What a HEX file of the selected device would hold, to be compared at a later time: whether the
// image is still what was loaded or saved.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/session.h"

namespace quillon {

class ImageMark {
  public:
    ImageMark() = default;  // of no device: equal to no image
    explicit ImageMark(const Session& session);

    // The same device, and the same values in all that a file holds. The image's other places,
    // which a load or an operation may leave anyhow, don't count.
    bool is_of(const Session& session) const;
    bool has_device() const { return !DeviceName_.empty(); }

  private:
    std::string DeviceName_;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace quillon

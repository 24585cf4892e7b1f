// SPDX-License-Identifier: MIT
// Remembers what a HEX file of the selected device would hold. A later comparison shows whether the
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

    // True for the same device with the same values in all that a file holds. The rest of the image
    // doesn't count: a load or an operation may leave anything there.
    bool is_of(const Session& session) const;
    bool has_device() const { return !DeviceName_.empty(); }

  private:
    std::string DeviceName_;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace quillon

// SPDX-License-Identifier: MIT
#include "app/product.h"

namespace quillon {

std::string_view product_version() { return QUILLON_VERSION; }

}  // namespace quillon

// SPDX-License-Identifier: MIT
// Applies a configuration word's row of the catalogue.
//
// Separate from ConfigModel, which depends on the catalogue: the catalogue applies these rows
// itself and must not depend on the model.
#pragma once

#include <string_view>

#include "app/main_form.h"
#include "app/session.h"
#include "catalogue/device_block.h"

namespace quillon {

// Takes a "CONFIGn" row: default, always-zero bits, always-one bits, all bits. A row whose values
// don't convert changes nothing.
void ApplyConfigRow(Session& session, MainForm& form, int n, const CatRow& row);

// Shows word n in the heading of its grid: the prefix and four digits.
void show_config_heading(const Session& session, MainForm& form, int n, std::string_view prefix);

}  // namespace quillon

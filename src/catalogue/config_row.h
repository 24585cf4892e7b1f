// SPDX-License-Identifier: MIT
// A configuration word as its row of the catalogue gives it.
//
// Apart from the model of the words, which searches the catalogue's options: the catalogue itself
// takes these rows and so stays below the model.
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

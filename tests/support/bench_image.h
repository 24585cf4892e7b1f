// SPDX-License-Identifier: MIT
// A pattern for the image of any core, and a simulated part that holds the image.
#pragma once

#include "app/session.h"
#include "board/target.h"

namespace quillon::test {

// Gives every place of every area a value of its own. The factors and strides are odd and share no
// divisor with a block, a page or a part's size, so a word that is swapped, shifted or sent twice
// is noticed.
void fill_pattern(Session& session);

// Fills the part as a programming run with this image would.
void put_into_part(const Session& session, SimulatedTarget& target);

}  // namespace quillon::test

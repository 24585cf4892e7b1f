// SPDX-License-Identifier: MIT
// A pattern for the image of any core, and a simulated part that holds the image.
#pragma once

#include "app/session.h"
#include "board/target.h"

namespace quillon::test {

// Every area gets values of its own in every place: odd factors and strides that share no divisor
// with a block, a page or a part's size, so that a word that is swapped, shifted or sent twice
// shows.
void fill_pattern(Session& session);

// As the board's part would hold it after a programming run.
void put_into_part(const Session& session, SimulatedTarget& target);

}  // namespace quillon::test

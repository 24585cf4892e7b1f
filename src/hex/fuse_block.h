// SPDX-License-Identifier: MIT
// The packed fuse block at 0xFF00: ID nibbles and each fuse in a byte of its own.
#pragma once

#include "app/session.h"

namespace quillon {

// Turns the block's bytes, as they came into CfgIdMem from index 0, into ID words and configuration
// word 1. The device's name decides what a fuse means.
void apply_fuse_block(Session& session);

}  // namespace quillon

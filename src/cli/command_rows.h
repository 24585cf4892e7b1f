// SPDX-License-Identifier: MIT
// The commands as a table: their words, what each takes, and the flow behind it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "app/outcome.h"

namespace quillon {
struct Run;
}

namespace quillon::cli {

enum class Command : std::uint8_t {
    Devices,
    Detect,
    Blank,
    Verify,
    Program,
    Read,
    ErasePgm,
    EraseChip,
    ExtendChipErase,
    ExtendPgmErase,
    ExtendDataErase,
    ExtendPgmProgram,
    ExtendDataProgram,
    ExtendPgmRead,
    ExtendDataRead,
    CalibRead,
    CalibWrite,
    Load,
    Simulate,
};

// The HEX file that a command loads first, by the data that it must hold. What the file has no data
// for would be written or compared as blank.
enum class HexNeed : std::uint8_t { None, AnyFile, Data, ProgramSide, Eeprom };

// The files that a command writes if asked to.
enum class Outputs : std::uint8_t {
    None,
    OfRead,  // -o after a good read, --dump after any
    OfLoad,  // --save and --dump
};

struct CommandRow {
    Command command;
    std::string_view group = "";  // the first of two words
    std::string_view name;
    std::string_view help;
    HexNeed hex = HexNeed::None;
    Outputs outputs = Outputs::None;
    Outcome (*flow)(Run&) = nullptr;  // the window's button; nullptr for a command without one

    // In the user's words: "erase chip".
    std::string words() const;
};

// A first word that needs a second one.
struct CommandGroup {
    std::string_view name;
    std::string_view help;
};

std::span<const CommandRow> command_rows();
std::span<const CommandGroup> command_groups();
const CommandRow& row_of(Command command);

}  // namespace quillon::cli

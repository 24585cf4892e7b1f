// SPDX-License-Identifier: MIT
#include "cli/command_rows.h"

#include <algorithm>
#include <array>

#include "run/run.h"

namespace quillon::cli {

namespace {

template <Outcome (Flows::*Entry)()>
Outcome main_form(Run& run) {
    return (run.flows.*Entry)();
}

template <Outcome (ExtendFlows::*Entry)()>
Outcome extend_form(Run& run) {
    return (run.extend.*Entry)();
}

constexpr std::array kGroups{
    CommandGroup{"erase", "erases the program memory or the whole chip"},
    CommandGroup{"extend", "erases, writes or reads one side of the device"},
    CommandGroup{"calib", "reads or writes the calibration word, such as that of PIC12F675"},
};

// In the order of the help.
constexpr std::array kRows{
    CommandRow{.command = Command::Devices, .name = "devices", .help = "lists the devices"},
    CommandRow{.command = Command::Detect,
               .name = "detect",
               .help = "finds the board and prints its identity",
               .flow = main_form<&Flows::Label_FirmwareVersion_Click>},
    CommandRow{.command = Command::Blank,
               .name = "blank",
               .help = "checks whether the device is blank",
               .flow = main_form<&Flows::Command_blank>},
    CommandRow{.command = Command::Verify,
               .name = "verify",
               .help = "compares the device with a file",
               .hex = HexNeed::Data,
               .flow = main_form<&Flows::Command_Verify>},
    CommandRow{.command = Command::Program,
               .name = "program",
               .help = "erases, writes and verifies the device",
               .hex = HexNeed::Data,
               .flow = main_form<&Flows::Command_program>},
    CommandRow{.command = Command::Read,
               .name = "read",
               .help = "reads the device",
               .outputs = Outputs::OfRead,
               .flow = main_form<&Flows::Command_read>},
    CommandRow{.command = Command::ErasePgm,
               .group = "erase",
               .name = "pgm",
               .help = "erases the program memory",
               .flow = main_form<&Flows::mnuPgmErase_Click>},
    CommandRow{.command = Command::EraseChip,
               .group = "erase",
               .name = "chip",
               .help = "erases the whole chip; keeps no calibration",
               .flow = main_form<&Flows::mnuChipErase_Click>},
    CommandRow{.command = Command::ExtendChipErase,
               .group = "extend",
               .name = "chip-erase",
               .help = "erases the whole chip; by default keeps the calibration",
               .flow = extend_form<&ExtendFlows::Cmd_Chip_Erace_Click>},
    CommandRow{.command = Command::ExtendPgmErase,
               .group = "extend",
               .name = "pgm-erase",
               .help = "erases program memory, configuration and ID",
               .flow = extend_form<&ExtendFlows::Cmd_PGM_Erase_Click>},
    CommandRow{.command = Command::ExtendDataErase,
               .group = "extend",
               .name = "data-erase",
               .help = "erases the EEPROM",
               .flow = extend_form<&ExtendFlows::Cmd_DATA_Erase_Click>},
    CommandRow{.command = Command::ExtendPgmProgram,
               .group = "extend",
               .name = "pgm-program",
               .help = "writes program memory, configuration and ID; may erase the EEPROM",
               .hex = HexNeed::ProgramSide,
               .flow = extend_form<&ExtendFlows::Cmd_PGM_Program_Click>},
    CommandRow{.command = Command::ExtendDataProgram,
               .group = "extend",
               .name = "data-program",
               .help = "erases and writes the EEPROM",
               .hex = HexNeed::Eeprom,
               .flow = extend_form<&ExtendFlows::Cmd_DATA_Program_Click>},
    CommandRow{.command = Command::ExtendPgmRead,
               .group = "extend",
               .name = "pgm-read",
               .help = "reads program memory, configuration and ID; the rest stays blank",
               .outputs = Outputs::OfRead,
               .flow = extend_form<&ExtendFlows::Cmd_PGM_Read_Click>},
    CommandRow{.command = Command::ExtendDataRead,
               .group = "extend",
               .name = "data-read",
               .help = "reads the EEPROM; the rest stays blank",
               .outputs = Outputs::OfRead,
               .flow = extend_form<&ExtendFlows::Cmd_DATA_Read_Click>},
    CommandRow{.command = Command::CalibRead,
               .group = "calib",
               .name = "read",
               .help = "reads the calibration word and prints it",
               .flow = main_form<&Flows::Command1_Click>},
    CommandRow{.command = Command::CalibWrite,
               .group = "calib",
               .name = "write",
               .help = "writes the value of --set Text_Calib_Data=XX",
               .flow = main_form<&Flows::Command2_Click>},
    CommandRow{.command = Command::Load,
               .name = "load",
               .help = "loads a file; needs no board",
               .hex = HexNeed::AnyFile,
               .outputs = Outputs::OfLoad},
    CommandRow{.command = Command::Simulate,
               .name = "simulate",
               .help = "serves the simulated board on a pseudo-terminal"},
};

// row_of() finds a row by its place.
static_assert([] {
    for (std::size_t i = 0; i < kRows.size(); ++i)
        if (static_cast<std::size_t>(kRows[i].command) != i) return false;
    return true;
}());

}  // namespace

std::string CommandRow::words() const {
    return group.empty() ? std::string{name} : std::string{group} + ' ' + std::string{name};
}

std::span<const CommandRow> command_rows() { return kRows; }
std::span<const CommandGroup> command_groups() { return kGroups; }
const CommandRow& row_of(Command command) { return kRows[static_cast<std::size_t>(command)]; }

}  // namespace quillon::cli

// SPDX-License-Identifier: MIT
// What goes over the wire in each operation of each programming type, printed as one table and
// compared with a table written by hand.
#include <sstream>

#include "generic_lines.h"

namespace quillon::test {

namespace {

// The exchanges with the part in one operation, each without its data: "rsp 04 00".
struct Exchanges {
    Exchanges(const GenericCase& row, Outcome (Flows::*operation)()) {
        GenericBench bench{row};
        bench.notes_expected = true;  // a one-time part is erased in vain
        bench.dialogs.answers = {BoxAnswer::Ok};
        (bench.run->flows.*operation)();
        std::istringstream lines{bench.wire()};
        for (std::string line; std::getline(lines, line);) {
            if (!line.starts_with("> n") && !line.starts_with("> N")) continue;
            power += line[2];
            all.push_back(line.substr(3, line.find("  ", 3) - 3));
        }
    }
    // The letters of the first exchange of that kind. Reads and writes have the area behind it.
    std::string letters(std::string_view kind) const {
        for (const auto& head : all)
            if (head.starts_with(kind)) return head.substr(0, head.find(' '));
        return "-";
    }
    std::string command(std::string_view kind) const {
        for (const auto& head : all)
            if (head.starts_with(kind)) return head;
        return "-";
    }
    // The words of the n-th read or write of the "c" area; from the end where n is negative.
    int words(int n) const {
        std::vector<int> found;
        for (const auto& head : all)
            if (head.size() > 3 && head[2] == 'c')
                found.push_back(std::stoi(head.substr(head.size() - 2), nullptr, 16));
        return found.at(static_cast<std::size_t>(n < 0 ? n + static_cast<int>(found.size()) : n));
    }
    std::string power;
    std::vector<std::string> all;
};

// The reads of program memory, EEPROM and configuration.
std::string reads(const Exchanges& run) {
    std::string text;
    for (const char area : {'p', 'd', 'c'}) {
        std::string found = "-";
        for (const auto& head : run.all)
            if (head.size() > 3 && head[0] == 'r' && head[2] == area) found = head.substr(0, 3);
        text += fmt::format("{:<4}", found);
    }
    return text;
}

// Program memory, EEPROM and configuration in the order in which a run writes them.
std::string writes(const Exchanges& run) {
    std::vector<std::string> found;
    for (const auto& head : run.all)
        if (head[0] == 'w') found.push_back(head.substr(0, head.find(' ')));
    if (found.size() == 2) found.insert(found.begin() + 1, "-");
    std::string text;
    for (const auto& letters : found) text += fmt::format("{:<4}", letters);
    return text;
}

std::string line_of(const GenericCase& row) {
    const Exchanges blank{row, &Flows::Command_blank};
    const Exchanges read{row, &Flows::Command_read};
    const Exchanges verify{row, &Flows::Command_Verify};
    const Exchanges program{row, &Flows::Command_program};
    const Exchanges erase{row, &Flows::mnuPgmErase_Click};
    EXPECT_EQ(program.power, std::string(program.power.size(), row.power)) << row.name;
    const auto chip = program.command(row.chip_erase.empty() ? "bd" : row.chip_erase);
    return fmt::format(
        "{:<8} {:<10} {} | {} | {}| {:<6} {:<6} | {}| {:>2} {:>2} {:>2} {:>2} {:>2} {:>2} {:>2} | "
        "{}\n",
        row.type, row.renamed.empty() ? row.device : row.renamed, blank.power.at(0),
        blank.all.at(0).substr(0, 2), reads(read), chip,
        erase.all.at(0).empty() ? "-" : erase.all.at(0), writes(program), read.words(0),
        blank.words(0), read.words(1), verify.words(1), program.words(-3), program.words(-2),
        program.words(-1), program.letters("br"));
}

}  // namespace

TEST(types_of_14_bits, send_the_letters_and_counts_of_this_table) {
    std::string table;
    for (const auto& row : kGenericCases) table += line_of(row);

    // Type, device, power letter | blank check of program memory | reads of program memory, EEPROM
    // and configuration | chip erase, erase of program memory | writes | words of the "c" area in
    // the device check, blank check, read, verify, the read before a write, the write, and the
    // verify after it | read of the calibration word.
    // clang-format off
    EXPECT_EQ(table,
              "12C6     PIC12C672  n | bs | rsp -   rsc | -      -      | wsp -   wsc |  8  8  8  8  8  8  8 | br\n"
              "12F6     PIC12F675  n | bs | rsp rsd rsc | bd 0A  bd 08  | wee wed wec |  8  8  8  8  8  8  8 | br\n"
              "EPROM    PIC16C622A N | bs | rsp -   rsc | -      -      | wsp -   wsc |  8  8  8  8  8  8  8 | -\n"
              "EPROM2   PIC16C715  N | bS | rSp -   rSc | -      -      | wSp -   wSc |  8  8  8  8  8  8  8 | -\n"
              "FLASH0   PIC16F870  N | bs | rsp rsd rsc | bd 0A  bd 08  | we8 wed wec |  8  8  8  8  8  8  8 | -\n"
              "FLASH0   PIC16F628  n | bs | rsp rsd rsc | bd 0A  bd 08  | we5 wed wec |  8  8  8  8  8  8  8 | -\n"
              "FLASH0   PIC16F73   N | bs | rsp -   rsc | bd 0A  -      | we1 -   wec |  8  8  8  8  8  8  8 | -\n"
              "FLASH0   PIC16F84A  N | bs | rsp rsd rsc | bd 0A  bd 08  | wef wed wec |  8  8  8  8  8  8  8 | -\n"
              "FLASH1   PIC16F628A n | bs | rsp rsd rsc | bd 0A  bd 08  | we8 wed wec |  8  8  8  8  8  8  8 | -\n"
              "FLASH2   PIC16F73   N | bs | rsp -   rsc | bd 0A  -      | wEe -   wEc |  8  8  8  8  8  8  8 | -\n"
              "FLASH4   PIC16F818  N | bs | rsp rsd rsc | bd 0A  bd 08  | wHe wId wFc |  8  8  8  8  8  8  8 | -\n"
              "FLASH4.9 PIC16F88   N | bs | rsp rsd rsc | bd 0A  bd 08  | wHe wId wJc |  8 16 16 16  8  9 16 | -\n"
              "FLASH8   PIC16F84A  N | bs | rsp rsd rsc | bd 0A  bd 08  | wGe wed wFc |  8  8  8  8  8  8  8 | -\n"
              "LDR412   LDR412     N | b8 | r8p r8d r8c | bD 0A  bD 02  | w84 w8d w8c |  8  8  8  8  8  8  8 | -\n");
    // clang-format on
}

}  // namespace quillon::test

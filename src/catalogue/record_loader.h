// SPDX-License-Identifier: MIT
// Applies the rows of a device block: each key sets values in the session or on a form.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/main_form.h"
#include "app/session.h"
#include "catalogue/device_block.h"

namespace quillon {

// Why a row can't be used, "" if it can. One of the texts of catalogue_texts.h.
using RowProblem = std::string_view;

class RecordLoader {
  public:
    // `type` is the type that the block will have: the EEPROM's limit depends on it.
    RecordLoader(Session& session, MainForm& form, BoardForm& board, ProgrammingType type)
        : session_{session}, form_{form}, board_{board}, type_{type} {}

    // A row that can't be used changes nothing.
    [[nodiscard]] RowProblem take(const CatRow& row);

    // The options of all configuration fields, in the order of the rows.
    std::vector<FieldOption>& options() { return options_; }

  private:
    // What a key's handler gets: its row and, for numbered keys, the number.
    using Handler = RowProblem (RecordLoader::*)(const CatRow& row, int n);
    struct Key;
    static const Key* find_key(std::string_view key);

    RowProblem CP_MASK_CF5(const CatRow& row, int);
    RowProblem PACKAGE(const CatRow& row, int);
    RowProblem JP2(const CatRow& row, int);
    RowProblem FIRM(const CatRow& row, int);
    RowProblem VDD_VPP_DELAY(const CatRow& row, int);
    RowProblem POWER_MODE(const CatRow& row, int);
    RowProblem PGM_TYPE(const CatRow& row, int);
    RowProblem COMMENT(const CatRow& row, int);
    RowProblem CONFIG(const CatRow& row, int n);
    RowProblem PGM_SIZE_WORD(const CatRow& row, int);
    RowProblem EEPROM_BYTE(const CatRow& row, int);
    RowProblem ERASE_CHIP(const CatRow& row, int);
    RowProblem ERASE_CONFIG(const CatRow& row, int);
    RowProblem ERASE_EEPROM(const CatRow& row, int);
    RowProblem ERASE_BLOCK(const CatRow& row, int n);
    RowProblem WRITE_BUFFER_SIZE_BYTE(const CatRow& row, int);
    RowProblem DEVID1(const CatRow& row, int);
    // Keys that no routine reads: their values are checked and ignored.
    RowProblem kept_number(const CatRow& row, int most);
    RowProblem kept_text(const CatRow& row, int);

    RowProblem calibration(std::string_view opcode, std::string_view digits);
    RowProblem field(const std::string& key, const CatRow& row);
    void show_eeprom_controls(bool present);

    Session& session_;
    MainForm& form_;
    BoardForm& board_;
    ProgrammingType type_;

    std::vector<FieldOption> options_;
    std::string remembered_;  // key and field name of the last row that made a grid row
    std::array<std::size_t, kConfigWords + 1> next_grid_row_{1, 1, 1, 1, 1, 1, 1, 1};
};

// Most cells that EepMem holds: two bytes a cell, but for the PIC18 types.
std::int32_t most_eeprom_cells(ProgrammingType type);

}  // namespace quillon

// SPDX-License-Identifier: MIT
// Keeps the configuration words and their grids of fields consistent, both ways.
//
// HFGrid(n) shows word n: row 0 its heading and its number, then one row per field with its present
// option. A field's options are searched in its own word only, from the last match on: grid and
// catalogue have the same order.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "catalogue/catalogue.h"
#include "image/views.h"

namespace quillon {

class ConfigModel {
  public:
    ConfigModel(Session& session, MainForm& form, Messages& messages, MemoryViews& views,
                const Catalogue& catalogue);

    void InitConfigGrids();
    void ResetConfigGrids();
    // Computes word n's number from its options.
    void ConfigGridChanged(int n);
    // Sets word n as a whole, except the bits that are always 0 or 1. The other words keep their
    // values.
    void put_word(int n, std::uint32_t word);
    // Sets one field of word n. Nothing changes if the word has no such field or option.
    enum class FieldChange : std::uint8_t { Done, NoField, NoOption };
    [[nodiscard]] FieldChange set_field(int n, std::string_view field, std::string_view option);
    // Shows each word's number as options; sets ProtectMixed.
    void ShowConfigWords();
    // Shows title and text of the field in the given grid row in the message area.
    void ShowFieldHelp(int n, int row);
    // A click on a cell: fills CmbInit with the field's options and shows it, with the field's
    // help.
    void FieldClicked(int n, int row, int column);
    // A key on a cell: a hexadecimal digit on an option opens TxtInit with it. False, with nothing
    // done, for any other key and cell.
    bool FieldTyped(int n, int row, int column, char key);
    // Writes CmbInit's text into the clicked cell of the current tab's grid.
    void CmbInit_Click();
    // The free entry of a value over the clicked cell is done.
    void TxtInit_Done();
    // A click on the configuration text: shows its words in the other radix, with a message.
    void Text_Config_Click();

    // A word was read whose CP field matches no option.
    bool ProtectMixed() const { return protect_mixed_; }

  private:
    void show_word(int n);
    void show_options(int n);
    void store_bytes(int n);
    int current_word() const;
    bool has_field(int n, int row) const;
    bool is_option_cell(int n, int row, int column) const;
    void enter(int n, std::string value);

    Session& session_;
    MainForm& form_;
    Messages& messages_;
    MemoryViews& views_;
    const Catalogue& catalogue_;
    bool protect_mixed_ = false;
};

}  // namespace quillon

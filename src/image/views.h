// SPDX-License-Identifier: MIT
// The text views of the memory image. Each is written to a display file and loaded into its box in
// one piece.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "app/host.h"
#include "app/main_form.h"
#include "app/session.h"

namespace quillon {

class MemoryViews {
  public:
    MemoryViews(Session& session, MainForm& form, Host& host)
        : session_{session}, form_{form}, host_{host} {}

    // The folder of the display files, with a separator at its end; "" writes none. The default is
    // TempDir. Two programs that run at once must not write the same file.
    void keep_files_in(std::string folder) { folder_ = std::move(folder); }

    void ShowProgramMemory();  // "pgmmemory_temp.txt" and RichTxtPgmMem
    void ShowEepromMemory();   // "eepmemory_temp.txt" and rText_EepromMem, two bytes a cell
    void ShowEepromBytes();    // the same, one byte a cell
    void show_eeprom();        // the one of the two that PgmType asks for ("18F": bytes)
    // ID and configuration texts and LblCheckSUM. For types beginning "18F" the check sum alone.
    void ShowConfigSummary();
    // Shows Text_Config1 and Text_Config2 in binary from now on, or in hexadecimal again. The words
    // themselves stay.
    void switch_config_radix();

  private:
    void show_eeprom_text(std::string text);
    void write_display_file(std::string_view name, std::string_view text) const;

    Session& session_;
    MainForm& form_;
    Host& host_;
    std::optional<std::string> folder_;
    bool config_in_binary_ = false;
};

}  // namespace quillon

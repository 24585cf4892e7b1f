// SPDX-License-Identifier: MIT
// device6.ini: the device list, and the block of the device that is being selected.
//
// Each selection reads the file from its start; no block is kept between two selections.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/dialogs.h"
#include "app/host.h"
#include "app/main_form.h"
#include "app/session.h"
#include "catalogue/device_block.h"
#include "catalogue/line_reader.h"

namespace quillon {

// The help of a configuration field: its name, a title and a text.
struct CmtRow {
    std::string key;
    std::string title;
    std::string text;
};

class Catalogue {
  public:
    Catalogue(Session& session, MainForm& form, BoardForm& board, Host& host, Dialogs& dialogs);

    // Start-up pass: fills DeviceList, Combo_device, CatVersion, writes "Support_PIC_List.txt".
    // Sets CatError, and shows its box, where the file can't be opened or is beyond its limits.
    void LoadDeviceList();
    // Selection pass: fills the session's device fields, CmtTable, frmBoard's drawing and the
    // configuration grids. A block with no end loads nothing. A line that can't be used is left out
    // and the rest is loaded. Both show a box. A name that isn't in the file changes nothing.
    void LoadDeviceRecord(std::string_view name);

    const std::vector<CmtRow>& CmtTable() const { return comments_; }
    // The options of all configuration fields of the block, in file order.
    const std::vector<FieldOption>& options() const { return options_; }

  private:
    std::string path() const;
    bool scan_names(LineReader reader);
    void write_device_list() const;
    void fail_start();

    void scan_for(std::string_view name, LineReader reader);
    void take_comment(const LineReader& reader);
    void start_block();
    void process(const DeviceBlock& block);
    void check_former_eeprom();
    void add_problem(int line, std::string_view text, std::string_view reason);
    void report();

    Session& session_;
    MainForm& form_;
    BoardForm& board_;
    Host& host_;
    Dialogs& dialogs_;
    std::vector<CmtRow> comments_;
    std::vector<FieldOption> options_;
    std::vector<std::string> problems_;  // of the load in progress
};

}  // namespace quillon

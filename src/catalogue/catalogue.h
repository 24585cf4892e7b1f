// SPDX-License-Identifier: MIT
// device6.ini: the device list, and the block of the device that is being selected.
//
// The file is read again from its top at each selection; nothing of a block is kept between two.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "app/dialogs.h"
#include "app/host.h"
#include "app/main_form.h"
#include "app/session.h"

namespace quillon {

// One row of a device block: column 0 the key. Missing columns are empty.
using CatRow = std::array<std::string, 16>;

struct CmtRow {
    std::string key;
    std::string title;
    std::string text;
};

class ConfigModel;

class Catalogue {
  public:
    Catalogue(Session& session, MainForm& form, BoardForm& board, Host& host, Dialogs& dialogs);

    // Start-up pass: fills DeviceList, Combo_device, CatVersion, writes "Support_PIC_List.txt".
    // Sets CatError, and shows its box, where the file can't be opened or is beyond its limits.
    void LoadDeviceList();
    // Selection pass: fills the session's device fields, CmtTable, frmBoard's drawing and the
    // configuration grids. A damaged block shows a box; what was read until then stands.
    void LoadDeviceRecord(std::string_view name, ConfigModel& config);

    const std::vector<CatRow>& CatRows() const { return rows_; }
    const std::vector<CmtRow>& CmtTable() const { return comments_; }

  private:
    Session& session_;
    MainForm& form_;
    BoardForm& board_;
    Host& host_;
    Dialogs& dialogs_;
    std::vector<CatRow> rows_;
    std::vector<CmtRow> comments_;
};

}  // namespace quillon

// SPDX-License-Identifier: MIT
// The Open sequence: a HEX file is chosen, its ";PIC" comment may select a device, it is loaded.
#pragma once

#include <filesystem>
#include <optional>

#include "app/dialogs.h"
#include "app/host.h"
#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "app/settings.h"
#include "app/token.h"
#include "catalogue/buffer_commands.h"
#include "catalogue/config_model.h"
#include "catalogue/device_selection.h"
#include "image/views.h"

namespace quillon {

class HexFiles {
  public:
    HexFiles(Session& session, MainForm& form, AboutForm& about, Settings& settings, Host& host,
             Dialogs& dialogs, Messages& messages, MemoryViews& views, ConfigModel& config,
             BufferCommands& buffer, DeviceSelection& selection);

    // The Open command. Asks for a file by dialog unless one is given: a file dropped on the window
    // or named to the command line goes the same way as if it had been chosen in the dialog.
    Token mnuFileOpen_Click(std::optional<std::filesystem::path> chosen = std::nullopt);
    // Short form: the file of the command line, else a dialog in the given folder. No ";PIC" scan,
    // no history.
    Token mnuFileDirectOpen(const std::filesystem::path& folder);
    // History entry n, 1 to 5: selects its device, then mnuFileDirectOpen with its folder.
    void nmuFile_Click(int n);
    void nmuHistryClear_Click();
    // Shows nmuFile1 to nmuFile5 and nmuDevice1 to nmuDevice5 from the settings.
    void restore_history();

  private:
    Session& session_;
    MainForm& form_;
    AboutForm& about_;
    Settings& settings_;
    Host& host_;
    Dialogs& dialogs_;
    Messages& messages_;
    MemoryViews& views_;
    ConfigModel& config_;
    BufferCommands& buffer_;
    DeviceSelection& selection_;
};

}  // namespace quillon

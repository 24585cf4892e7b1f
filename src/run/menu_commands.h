// SPDX-License-Identifier: MIT
// The menu commands that change a mode, open a form or open a document.
//
// The option and help menus stay enabled while an operation waits for the board. A command that
// would disturb the operation does nothing then.
#pragma once

#include <string_view>

namespace quillon {

struct Run;

class MenuCommands {
  public:
    explicit MenuCommands(Run& run) : run_{run} {}

    void mnuBlankSkip_Click();
    void HexUpperAddress_Click();  // takes effect at the next load or save
    void HexFileCheck_Click();
    void mnuComMode1_Click();  // takes effect at the next search for the board
    void mnuBoardInfomation_Click();
    void mnuLock_Click();  // production mode
    void mnuFrmmainHight_Click();
    void mnuLogFileOpen_Click();
    void mnuHelp_Click();
    void mnuBoardAmend_Click();
    // The port dialog, also behind Command_com; once a port is chosen the board is searched there.
    void mnuComPort_Click();

    // frmBoard's place, in twips, as the user moves it.
    void frmBoard_Moved(int Left, int Top);
    // Its close box: no board information from now on.
    void frmBoard_Closed();
    // The button of frmHint: the document with the hint, or a box where it can't be opened.
    void CmdHint_Click();
    // The about form's button.
    void open_support_page();

  private:
    void open(std::string_view document);
    void show_board(bool shown);
    void save_board_place();
    bool busy() const;

    Run& run_;
};

}  // namespace quillon

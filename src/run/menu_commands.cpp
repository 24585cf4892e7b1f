// SPDX-License-Identifier: MIT
#include "run/menu_commands.h"

#include <fmt/format.h>

#include <string>

#include "app/buttons.h"
#include "app/operation_log.h"
#include "app/product.h"
#include "link/link_texts.h"
#include "run/menu_texts.h"
#include "run/run.h"

namespace quillon {

namespace {

constexpr int kALittleTaller = 500;  // twips

bool toggle(MenuItem& item) {
    item.Checked.set(!item.Checked.get());
    return item.Checked.get();
}

}  // namespace

bool MenuCommands::busy() const { return run_.flows.running(); }

void MenuCommands::mnuBlankSkip_Click() {
    run_.settings.save_flag("SkipMode", toggle(run_.form.mnuBlankSkip));
    // While an operation runs this button stays locked: the operation's end enables it.
    const bool extend = run_.form.Cmd_Extend_Program.Enabled.get();
    ApplyBlankSkip(run_.session.DeviceName, run_.form);
    if (busy()) run_.form.Cmd_Extend_Program.Enabled.set(extend);
}

void MenuCommands::HexUpperAddress_Click() {
    run_.settings.save_flag("HexUpperAddress", toggle(run_.form.HexUpperAddress));
}

void MenuCommands::HexFileCheck_Click() {
    run_.settings.save_flag("HexFileCheck", toggle(run_.form.HexFileCheck));
}

void MenuCommands::mnuComMode1_Click() {
    run_.settings.save_flag("mnuComMode1", toggle(run_.form.mnuComMode1));
    run_.messages.ShowMessage(menu_text::kComMode1);
}

void MenuCommands::show_board(bool shown) {
    run_.settings.save("mnuBoardInfomation", shown ? "True" : "False");
    run_.board.Visible.set(shown);
    save_board_place();
}

void MenuCommands::mnuBoardInfomation_Click() { show_board(toggle(run_.form.mnuBoardInfomation)); }

void MenuCommands::frmBoard_Closed() {
    run_.form.mnuBoardInfomation.Checked.set(false);
    show_board(false);
}

void MenuCommands::frmBoard_Moved(int Left, int Top) {
    run_.board.Left = Left;
    run_.board.Top = Top;
    save_board_place();
}

void MenuCommands::save_board_place() {
    run_.settings.save("BoardLeft", run_.board.Left);
    run_.settings.save("BoardTop", run_.board.Top);
}

void MenuCommands::mnuLock_Click() {
    auto& form = run_.form;
    const bool locked = toggle(form.mnuLock);
    if (busy()) return;  // the operation's end enables the buttons that the check mark asks for
    if (!locked) {
        UnlockButtons(run_.session.PgmType.text(), form);
        return;
    }
    LockButtons(form);
    release_buttons(run_.session.PgmType.text(), form);
    form.Focus.set("");
    form.Focus.set(form.Command_program.name);
}

void MenuCommands::mnuFrmmainHight_Click() {
    run_.form.Height += kALittleTaller;
    run_.form.Placed.emit();
}

void MenuCommands::mnuLogFileOpen_Click() {
    mnuLogFileOpen(run_.session, run_.host, run_.messages);
}

void MenuCommands::mnuHelp_Click() { open(menu_text::kHelpFile); }

void MenuCommands::mnuBoardAmend_Click() { open(menu_text::kBoardFile); }

// Shown in a box: the question covers the message area, and the run that asks it goes on to show
// messages of its own.
void MenuCommands::CmdHint_Click() {
    const std::string path = run_.session.AppPath + std::string{menu_text::kBoardFile};
    if (run_.host.open_document(path)) return;
    run_.dialogs.box({.title = std::string{kProductTitle},
                      .text = fmt::format(menu_text::kHintNotOpened, path),
                      .icon = BoxIcon::Warning});
}

void MenuCommands::open_support_page() {
    const std::string page{link_text::kSupportPage};
    if (!run_.host.open_document(page)) run_.messages.ShowMessage(menu_text::kNotOpened, page);
}

void MenuCommands::open(std::string_view document) {
    const std::string path = run_.session.AppPath + std::string{document};
    if (!run_.host.open_document(path)) run_.messages.ShowMessage(menu_text::kNotOpened, path);
}

void MenuCommands::mnuComPort_Click() {
    if (busy()) return;
    run_.option.Form_Load();
    run_.dialogs.frmOption();
    if (!run_.port.is_open()) return;
    // No operation may start inside the search's waits.
    run_.form.Enabled.set(false);
    static_cast<void>(search_board(run_));
    run_.form.Enabled.set(true);
}

}  // namespace quillon

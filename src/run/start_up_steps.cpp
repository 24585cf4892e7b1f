// SPDX-License-Identifier: MIT
// The steps of start-up, in their order.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "app/buttons.h"
#include "app/folders.h"
#include "app/number_settings.h"
#include "app/product.h"
#include "app/text.h"
#include "image/fill.h"
#include "link/link_texts.h"
#include "run/start_up.h"
#include "run/start_up_texts.h"

namespace quillon {

namespace {

namespace fs = std::filesystem;

constexpr int kFormWidth = 10710;  // twips
constexpr int kBackMargin = 120;

// One name is listed twice and "eepmemory_temp.txt" is missing, as in the product: a read-only one
// is noticed at the first EEPROM view.
constexpr std::array<std::string_view, 13> kTestedFiles{
    "temp.txt",     "pgmmemory_temp.txt", "pgmmemory_temp.txt", "LOG_NEW0.txt", "LOG_OLD1.txt",
    "LOG_OLD2.txt", "LOG_OLD3.txt",       "LOG_OLD4.txt",       "LOG_OLD5.txt", "LOG_OLD6.txt",
    "LOG_OLD7.txt", "LOG_OLD8.txt",       "LOG_OLD9.txt",
};

constexpr std::array<std::string_view, 5> kFlagSettings{
    "SkipMode", "mnuComMode1", "mnuBoardInfomation", "HexUpperAddress", "HexFileCheck",
};

void append(RichTextBox& box, std::string_view text) {
    box.Text.set(box.Text.get() + std::string{text});
}

}  // namespace

void StartUp::load_main_form() {
    auto& form = run_.form;
    form.Left = value_of(run_.settings, number_setting::MainLeft);
    form.Top = value_of(run_.settings, number_setting::MainTop);
    form.Height = value_of(run_.settings, number_setting::MainHeight);
    form.LabelBackWidth.set(form.ScaleWidth - kBackMargin);
    form.Lbl_PcVersion.Caption.set(
        fmt::format("{}{}", start_up_text::kPcVersion, product_version()));
    for (auto& box : form.Text1) box.Visible.set(false);
    for (auto& label : form.Label12) label.Visible.set(false);
    form.Command4.Visible.set(false);
    form.Text2.Visible.set(false);
    form.Text3.Visible.set(false);
    form.Width = kFormWidth;
    form.Placed.emit();
}

void StartUp::show_waiting() {
    auto& form = run_.form;
    form.Visible.set(true);
    form.WaitCursor.set(true);
    form.RichTxtPgmMem.Text.set(std::string{start_up_text::kWait});
    form.Enabled.set(false);
}

void StartUp::read_command_line(std::string_view tail) {
    auto& session = run_.session;
    auto& view = run_.form.RichTxtPgmMem;
    if (const auto items = GetCommandLine(tail); !items.empty()) {
        session.CommandLine = upper(items.front());
        append(view, fmt::format("\r\ni:{}", items.front()));
        take_hex_operands();
    }
    if (!session.CmdHexPath.empty())
        append(view, fmt::format("\r\n\r\n1:{}\r\n2:{}\r\n3:{}", session.CmdHexPath,
                                 session.CmdArg2, session.CmdArg3));
    session.CommandLine = session.CmdHexPath;
    // The current folder is about to change to the program's. A relative path is made absolute
    // before.
    std::error_code ignored;
    if (const fs::path path{session.CommandLine}; !path.empty() && path.is_relative())
        session.CommandLine = fs::absolute(on_disk(path), ignored).string();
}

void StartUp::take_hex_operands() {
    auto& session = run_.session;
    session.CommandLine = replace_all(session.CommandLine, "\"", "");
    HexOperands operands = hex_operands(session.CommandLine);
    if (!operands.CmdHexPath.empty() && !FileExists(operands.CmdHexPath)) {
        run_.messages.ShowMessage(start_up_text::kHexNotOpened);
        hex_not_opened_ = true;
        operands = {};
    }
    session.CmdHexPath = operands.CmdHexPath;
    session.CmdArg2 = operands.CmdArg2;
    session.CmdArg3 = operands.CmdArg3;
}

void StartUp::fill_about() {
    run_.about.lblVersion.Caption.set(fmt::format("V{}", product_version()));
    run_.about.lblTitle.Caption.set(std::string{kProductTitle});
    run_.about.lblDescription.Caption.set(std::string{kProductDescription});
    run_.about.lblDisclaimer.Caption.set(std::string{kProductLegal});
}

std::string StartUp::GetAppFolder() {
    std::error_code ignored;
    // The path of a catalogue named by the user is relative to the folder that is left here.
    if (auto& catalogue = run_.session.CatalogueFile; !catalogue.empty())
        catalogue = fs::absolute(catalogue, ignored).string();
    const fs::path folder = run_.host.AppPath();
    fs::current_path(folder, ignored);
    return with_separator(folder.string());
}

bool StartUp::make_work_folder() {
    auto& path = run_.session.TempDir;
    path = with_separator(run_.host.documents_folder().string()) + "QUILLON4_TEMP" + kSeparator;
    if (MakeFolder(path, Ask::No, run_.dialogs)) return true;
    run_.dialogs.box({.title = std::string{start_up_text::kFolderTitle},
                      .text = fmt::format(start_up_text::kFolderFailed, printable(path)),
                      .icon = BoxIcon::Critical});
    return false;
}

bool StartUp::work_files_writable() {
    const auto& folder = run_.session.TempDir;
    owns_work_files_ = std::ranges::none_of(
        kTestedFiles, [&](std::string_view name) { return is_read_only(fs::path{folder} / name); });
    if (!owns_work_files_)
        run_.dialogs.box({.text = fmt::format(start_up_text::kWorkFileReadOnly, printable(folder)),
                          .icon = BoxIcon::Critical});
    return owns_work_files_;
}

void StartUp::set_titles() {
    auto& session = run_.session;
    run_.about.lblDisclaimer.Caption.set(
        fmt::format("{}{}", start_up_text::kSupportPage, link_text::kSupportPage));
    session.MainTitle =
        fmt::format("{}{}  ", start_up_text::kTitle, run_.about.lblVersion.Caption.get());
    run_.form.Caption.set(session.MainTitle + session.CommandLine);
}

bool StartUp::load_catalogue() {
    auto& session = run_.session;
    run_.form.mnuBoardInfomation.Checked.set(run_.settings.flag("mnuBoardInfomation", true));
    run_.board.Left = value_of(run_.settings, number_setting::BoardLeft);
    run_.board.Top = value_of(run_.settings, number_setting::BoardTop);
    if (session.CatalogueFile.empty()) session.CatalogueFile = session.AppPath + "device6.ini";
    session.CatError = false;
    run_.catalogue.LoadDeviceList();
    if (session.CatError) return false;
    run_.config.InitConfigGrids();
    run_.form.Label_Ver.Caption.set(
        fmt::format("{}{}", start_up_text::kCatalogueVersion, session.CatVersion));
    return true;
}

// Called before the search for the board, which needs the port and its mode.
void StartUp::restore_link_settings() {
    run_.session.ComNo = value_of(run_.settings, number_setting::ComNo);
    run_.form.mnuComMode1.Checked.set(run_.settings.flag("mnuComMode1", false));
}

bool StartUp::connect_board() {
    auto& session = run_.session;
    restore_link_settings();
    if (session.ComNo == 0) {
        run_.link.show_no_board();
        run_.option.Form_Load();
        run_.dialogs.frmOption();
        return !run_.port.is_open() || search_board(run_);
    }
    run_.port.CommPort(session.ComNo);
    run_.form.Label_FirmwareVersion.Caption.set(
        fmt::format(start_up_text::kNotConnected, session.ComNo));
    if (!search_board(run_)) return false;
    close_port();
    return true;
}

void StartUp::close_port() {
    try {
        run_.link.Writer_Close();
    } catch (const Abandoned& abandoned) {
        run_.port.close();
        if (abandoned.reason != Abandoned::Reason::PortLost) throw;
    }
}

// A saved text that isn't a number counts as -1, an index that the list doesn't have.
void StartUp::select_last_device() {
    const bool saved = !run_.settings.text("deviceNew").empty();
    run_.form.Combo_device.select(run_.settings.number("deviceNew", saved ? -1 : 0));
    run_.form.LblCheckSUM.Caption.set(ProgramCheckSum(run_.session));
}

void StartUp::restore_modes() {
    run_.form.mnuBlankSkip.Checked.set(run_.settings.flag("SkipMode", false));
    run_.form.HexUpperAddress.Checked.set(run_.settings.flag("HexUpperAddress", false));
    run_.form.HexFileCheck.Checked.set(run_.settings.flag("HexFileCheck", true));
    ApplyBlankSkip(run_.session.DeviceName, run_.form);
}

void StartUp::open_command_line_file() {
    auto& session = run_.session;
    if (session.CommandLine.empty()) {
        run_.form.Caption.set(session.MainTitle + run_.settings.text("OPEN_DIR0"));
        return;
    }
    run_.form.Caption.set(session.MainTitle + folder_of(session.CommandLine));
    if (run_.device_select.Form_Load()) run_.dialogs.frmDeviceSelect();
    if (!session.CommandLine.empty()) load_picked_file();
}

void StartUp::load_picked_file() {
    auto& session = run_.session;
    run_.form.Combo_device.select(std::string_view{session.PickedDevice});
    // The folder as the disk spells it, as dialogs open there.
    session.HexFolder = folder_of(on_disk(session.CommandLine).string());
    run_.settings.save("OPEN_DIR0", session.HexFolder);
    run_.files.mnuFileDirectOpen(session.HexFolder);
}

void StartUp::settle() {
    auto& form = run_.form;
    // The views of a selected device have replaced the waiting text; without one it would stay.
    if (run_.session.DeviceName.empty()) form.RichTxtPgmMem.Text.set("");
    form.Enabled.set(true);
    form.WaitCursor.set(false);
    turn(2);
    form.LabelBackWidth.set(form.ScaleWidth - kBackMargin);
    const auto& id = run_.session.CfgIdMem;
    run_.about.Label_ID_Word.Caption.set(
        fmt::format("NEW :{:02X}{:02X}:{:02X}{:02X}:{:02X}{:02X}:{:02X}{:02X}", id[0], id[1], id[2],
                    id[3], id[4], id[5], id[6], id[7]));
    // The search for the board and the selection have replaced it long before anyone could read it.
    if (hex_not_opened_) run_.messages.AddMessage(start_up_text::kHexNotOpened);
    report_troubles();
}

// "deviceNew" isn't reported: no device is selected then, which the user sees.
void StartUp::report_troubles() {
    for (const auto& setting : number_setting::kAll)
        if (!is_usable(run_.settings, setting))
            run_.messages.AddMessage(fmt::format(start_up_text::kBadSetting, setting.key));
    for (const auto key : kFlagSettings)
        if (!run_.settings.converts(key))
            run_.messages.AddMessage(fmt::format(start_up_text::kBadSetting, key));
    if (run_.session.DeviceList.empty())
        run_.messages.AddMessage(start_up_text::kNoDevices, printable(run_.session.CatalogueFile));
    if (const auto problem = run_.settings.problem(); !problem.empty())
        run_.messages.AddMessage(problem);
    if (!takes_files(run_.session.TempDir))
        run_.messages.AddMessage(start_up_text::kFolderNotWritten, printable(run_.session.TempDir));
}

}  // namespace quillon

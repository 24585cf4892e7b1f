// SPDX-License-Identifier: MIT
// The Open and Save commands. Open asks for a HEX file, selects the device that its ";PIC" comment
// names, and loads the file. Save writes the image to one.
//
// Open first selects the present device again. That clears the image, so that no data of an older
// file remain. A file that can't be read is refused before the current file, the caption, the
// settings and the history are touched.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "app/dialogs.h"
#include "app/host.h"
#include "app/main_form.h"
#include "app/messages.h"
#include "app/outcome.h"
#include "app/session.h"
#include "app/settings.h"
#include "app/token.h"
#include "catalogue/buffer_commands.h"
#include "catalogue/config_model.h"
#include "catalogue/device_selection.h"
#include "files/hex_loader.h"
#include "files/history.h"
#include "image/image_mark.h"
#include "image/views.h"

namespace quillon {

class HexFiles {
  public:
    HexFiles(Session& session, MainForm& form, AboutForm& about, Settings& settings, Host& host,
             Dialogs& dialogs, Messages& messages, MemoryViews& views, ConfigModel& config,
             BufferCommands& buffer, DeviceSelection& selection);

    // The Open command. Asks for a file by dialog unless one is given: a file dropped on the window
    // or named on the command line is handled as if it had been chosen in the dialog. Names are
    // found without regard to case. OK if the file was loaded; LoadResult then is OK too.
    Token mnuFileOpen_Click(std::optional<std::filesystem::path> chosen = std::nullopt);
    // The Open command with its direct flag set: the file at hand (HexFilePath) once more, with no
    // dialog; neither folder nor history are saved.
    Token open_directly();
    // The Save command: asks for a name, and before it replaces a file. A path given is used as if
    // it had been chosen in the dialog. The file becomes the one at hand once it is written; a save
    // that is cancelled or fails leaves the file at hand, the caption and the settings as they
    // were.
    Outcome mnuFileSave_Click(std::optional<std::filesystem::path> chosen = std::nullopt);
    // Short form: the file of the command line, else a dialog in the given folder. No ";PIC" scan,
    // no history.
    Token mnuFileDirectOpen(const std::filesystem::path& folder);
    // History entry n, 1 to 5: selects its device, then mnuFileDirectOpen with its folder.
    void nmuFile_Click(int n);
    void nmuHistryClear_Click();
    // Shows nmuFile1 to nmuFile5 and nmuDevice1 to nmuDevice5 from the settings.
    void restore_history();
    // Whether the image is what the file at hand holds: nothing was changed, read, cleared or
    // selected since it was loaded or saved.
    bool buffer_is_file() const { return file_.is_of(session_); }
    // Whether the file of the last load held a single data record. An empty one, or a page that a
    // server sent in its place, loads as well as any.
    bool file_had_data() const { return had_data_; }
    // The sides of the device for which that file had data. A side without any loads blank.
    HexSides file_sides() const { return sides_; }

  private:
    void clear_entry_fields();
    bool device_selected();
    Token refuse(std::string_view reason);
    Token open_from(const std::filesystem::path& folder);
    // The file's text, or nothing where it was refused.
    std::optional<std::string> read(const std::filesystem::path& path);
    void take_as_current(const std::filesystem::path& path);
    Token open(const std::filesystem::path& path, std::string_view folder);
    bool may_replace(const std::filesystem::path& path);
    void take_as_saved(const std::filesystem::path& path);
    void show_name(const std::filesystem::path& path);
    void select_named_device(std::string_view text);
    bool select_device_of(int entry);
    Token load(std::string_view text);

    Session& session_;
    MainForm& form_;
    Settings& settings_;
    Host& host_;
    Dialogs& dialogs_;
    Messages& messages_;
    MemoryViews& views_;
    BufferCommands& buffer_;
    DeviceSelection& selection_;
    FileHistory history_;
    HexLoader loader_;
    ImageMark file_;  // what the file at hand holds
    bool had_data_ = false;
    HexSides sides_;
    ImageMark former_;  // the image before the command that runs
};

// The device that a HEX text asks for: what follows the ";" of the last item holding ";PIC", to the
// item's end. Empty where there is none.
std::string_view device_named_in(std::string_view text);

}  // namespace quillon

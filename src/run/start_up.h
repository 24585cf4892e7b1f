// SPDX-License-Identifier: MIT
// Start-up and shutdown: puts the session together in its fixed order, and undoes it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "run/run.h"

namespace quillon {

// The command tail's items, cut at TAB. At most `most`; the scan stops where one more begins.
std::vector<std::string> GetCommandLine(std::string_view tail, std::size_t most = 10);
// The tail as this platform hands it over: the program's arguments joined by blanks.
std::string command_tail(std::span<const std::string> arguments);

// What the first item of the command line asks for. Both operands follow the path, each behind a
// "/"; text between the path and the first "/" is lost.
struct HexOperands {
    std::string CmdHexPath;  // up to and including ".HEX" and one more character
    std::string CmdArg2;
    std::string CmdArg3;
};
// All empty where the item names no ".HEX". The item is upper-cased and without quotes already.
HexOperands hex_operands(std::string_view item);

class StartUp {
  public:
    enum class End : std::uint8_t {
        Ready,
        CatalogueFailed,  // the window stays, disabled
        EndProcess,       // a second instance, no work folder, a read-only work file; or the user
                          // closed the window meanwhile
    };

    explicit StartUp(Run& run) : run_{run} {}

    // The whole start-up of the window. `second_instance` is what the platform reports about that.
    End Main(std::string_view command_tail, bool second_instance);
    // The part that the command line shares: folders, catalogue list, modes, port number. No board,
    // no device, no rotation: a production line calls the command line once per part. The current
    // folder stays where it is.
    End prepare();
    // Unloading frmMain: deletes the temporary files, closes the port, saves the place. All errors
    // are ignored. `minimized` keeps the saved place. Does nothing where start-up ended the
    // process: the files then belong to another instance.
    void shutdown(bool minimized);

    // Steps that tests and the window use by themselves
    void load_main_form();
    std::string GetAppFolder();

  private:
    End start(std::string_view tail, bool second_instance);
    void show_waiting();
    void read_command_line(std::string_view tail);
    void take_hex_operands();
    void fill_about();
    bool make_work_folder();
    bool work_files_writable();
    void set_titles();
    bool load_catalogue();
    void restore_link_settings();
    bool connect_board();
    void close_port();
    void select_last_device();
    void restore_modes();
    void open_command_line_file();
    void load_picked_file();
    void settle();
    void report_troubles();
    void turn(int times);

    Run& run_;
    bool owns_work_files_ = false;
    bool hex_not_opened_ = false;  // the file that the command line names
};

}  // namespace quillon

// SPDX-License-Identifier: MIT
// The order of start-up. Each step is a member of its own in start_up_steps.cpp.
#include "run/start_up.h"

#include "app/folders.h"

namespace quillon {

StartUp::End StartUp::Main(std::string_view tail, bool second_instance) {
    try {
        return start(tail, second_instance);
    } catch (const Abandoned&) {
        // The window was closed while start-up waited for the board.
        run_.port.close();
        return End::EndProcess;
    }
}

StartUp::End StartUp::start(std::string_view tail, bool second_instance) {
    load_main_form();
    show_waiting();
    turn(1);
    if (second_instance) return End::EndProcess;
    read_command_line(tail);
    fill_about();
    run_.session.AppPath = GetAppFolder();
    if (!make_work_folder() || !work_files_writable()) return End::EndProcess;
    set_titles();
    turn(1);
    run_.files.restore_history();
    turn(2);
    if (!load_catalogue()) return End::CatalogueFailed;
    run_.form.Visible.set(true);
    if (!connect_board()) return End::EndProcess;
    select_last_device();
    restore_modes();
    rotate_log(run_.session.TempDir);
    run_.session.AsmToolPath = run_.settings.text("AsmFilePathWithFileName");
    open_command_line_file();
    settle();
    return End::Ready;
}

StartUp::End StartUp::prepare() {
    fill_about();
    run_.session.AppPath = with_separator(run_.host.AppPath().string());
    if (!make_work_folder() || !work_files_writable()) return End::EndProcess;
    set_titles();
    run_.files.restore_history();  // a file that is opened goes on top of it
    if (!load_catalogue()) return End::CatalogueFailed;
    run_.session.BoardUnasked = true;
    restore_link_settings();
    if (run_.session.ComNo != 0) run_.port.CommPort(run_.session.ComNo);
    restore_modes();
    run_.session.AsmToolPath = run_.settings.text("AsmFilePathWithFileName");
    report_troubles();
    return End::Ready;
}

void StartUp::turn(int times) {
    for (int i = 0; i < times; ++i) run_.host.pump();
}

}  // namespace quillon

// SPDX-License-Identifier: MIT
// What unloading frmMain does. Errors are ignored, as no one is left to read them.
#include <array>
#include <filesystem>
#include <system_error>

#include "run/start_up.h"

namespace quillon {

namespace {

constexpr std::array<std::string_view, 3> kBeforeClosing{"temp.txt", "pgmmemory_temp.txt",
                                                         "eepmemory_temp.txt"};
// The interface runs while the port is closed, and a view may be written meanwhile.
constexpr std::array<std::string_view, 3> kAfterClosing{"pgmmemory_temp.txt", "dis_asm.asm",
                                                        "eepmemory_temp.asm"};

void remove(const std::string& folder, std::span<const std::string_view> names) {
    std::error_code ignored;
    for (const auto name : names) {
        const auto path = std::filesystem::path{folder} / name;
        if (!std::filesystem::is_directory(path, ignored)) std::filesystem::remove(path, ignored);
    }
}

}  // namespace

void StartUp::shutdown(bool minimized) {
    if (!owns_work_files_) return;
    // The interface runs on while the port is closed: nothing is to be started meanwhile.
    run_.form.Enabled.set(false);
    remove(run_.session.TempDir, kBeforeClosing);
    try {
        run_.link.Writer_Close();
    } catch (const Abandoned&) {
        run_.port.close();
    }
    run_.extend.Form_Unload();  // saves its place
    if (!minimized) {
        run_.settings.save("MainLeft", run_.form.Left);
        run_.settings.save("MainTop", run_.form.Top);
        run_.settings.save("MainHeight", run_.form.Height);
    }
    remove(run_.session.TempDir, kAfterClosing);
}

}  // namespace quillon

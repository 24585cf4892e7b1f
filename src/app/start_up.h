// SPDX-License-Identifier: MIT
// Start-up and shutdown: puts the session together in its fixed order, and undoes it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/run.h"

namespace quillon {

// The command tail's items, cut at TAB. At most ten; the scan stops at an eleventh.
std::vector<std::string> GetCommandLine(std::string_view tail, std::size_t most = 10);

class StartUp {
  public:
    enum class End : std::uint8_t {
        Ready,
        CatalogueFailed,  // the window stays, disabled
        EndProcess,       // a second instance, no work folder, a read-only work file
    };

    explicit StartUp(Run& run) : run_{run} {}

    // The whole start-up of the window. `second_instance` is the platform's word on that.
    End Main(std::string_view command_tail, bool second_instance);
    // The part of it that the command line shares: folders, catalogue list, modes. No board, no
    // device, no rotation: a production line calls the command line once a part.
    End prepare();
    // Unloading frmMain: deletes the temporary files, closes the port, saves the place. All errors
    // are ignored. `minimized` keeps the saved place.
    void shutdown(bool minimized);

  private:
    Run& run_;
};

}  // namespace quillon

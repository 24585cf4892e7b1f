// SPDX-License-Identifier: MIT
// What each command does, with the objects of one run.
//
// The steps of an operation: start-up, the device, the file through the Open sequence, the
// controls, the target in the simulated socket, the flow behind the window's button, the dump.
#pragma once

#include <QTemporaryDir>
#include <optional>
#include <string>
#include <vector>

#include "cli/events.h"
#include "cli/exit_status.h"
#include "cli/options.h"
#include "cli/ports.h"
#include "platform/qt_host.h"
#include "run/run.h"

namespace quillon::cli {

// How a run ends: the last event without its operation and time.
struct Finish {
    Result result;

    static Finish of(Outcome outcome);
    // For an error outside the flows; the text is for standard error.
    static Finish complain(int exit, std::string text);
    // Reports that a requested output is missing: a success becomes a failure.
    void miss(std::string text);
};

class Commands {
  public:
    Commands(const Options& options, Run& run, Ports& ports, Events& events);

    Finish execute();

  private:
    using Ending = std::optional<Finish>;  // empty while the run continues

    Finish carry_out();
    void tell_changes();
    Ending check_outputs() const;
    Ending start();
    void use_own_display_files();
    void tell_unsaved_settings();
    Ending choose_device();
    Ending open_file();
    std::optional<std::string> missing_data() const;
    std::optional<std::string> missing_calibration() const;
    Ending operate();
    Ending save_file();
    Ending write_dump();
    Finish list_devices();
    Finish simulate();
    Finish with_words(Finish finish) const;

    const Options& options_;
    const CommandRow& row_;
    Run& run_;
    Ports& ports_;
    Events& events_;
    std::optional<QTemporaryDir> display_files_;  // deleted at the end of the run
    std::string known_problem_;                   // of the settings; already reported at the start
    std::vector<Connection> connections_;
    int told_value_ = -1;  // the progress bar's value in the last event
    int told_max_ = -1;
};

}  // namespace quillon::cli

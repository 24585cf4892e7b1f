// SPDX-License-Identifier: MIT
#include "cli/commands.h"

#include <fmt/format.h>

#include <QDir>
#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>
#include <vector>

#include "app/folders.h"
#include "app/text.h"
#include "cli/cli_texts.h"
#include "cli/dump.h"
#include "cli/set_controls.h"
#include "parts/modules.h"
#include "run/start_up.h"

namespace quillon::cli {

namespace {

// The lines that a failed verify added to the program view. All other lines begin with an address.
std::vector<std::string> mismatches(const MainForm& form) {
    auto lines = lines_of(form.RichTxtPgmMem.Text.get());
    std::erase_if(lines, [](const std::string& line) { return !line.starts_with("Error"); });
    return lines;
}

}  // namespace

Finish Finish::of(Outcome outcome) {
    Finish finish;
    finish.result.exit = exit_status(outcome);
    finish.result.status = status_word(outcome);
    return finish;
}

Finish Finish::complain(int exit, std::string text) {
    Finish finish;
    finish.result.exit = exit;
    finish.result.status = exit == kUsage ? "usage" : "failed";
    finish.result.error = std::move(text);
    return finish;
}

void Finish::miss(std::string text) {
    if (result.exit == kSuccess) {
        result.exit = kFailed;
        result.status = "failed";
    }
    result.error = result.error.empty() ? std::move(text) : result.error + "; " + text;
}

Commands::Commands(const Options& options, Run& run, Ports& ports, Events& events)
    : options_{options}, row_{row_of(options.command)}, run_{run}, ports_{ports}, events_{events} {}

Finish Commands::execute() {
    auto finish = carry_out();
    tell_unsaved_settings();
    return finish;
}

Finish Commands::carry_out() {
    if (auto ending = check_outputs()) return *ending;
    tell_changes();
    if (auto ending = start()) return *ending;
    if (options_.command == Command::Devices) return list_devices();
    if (auto problem = check_sets(run_, options_.sets)) return Finish::complain(kUsage, *problem);
    if (auto ending = choose_device()) return *ending;
    apply_reading_sets(run_, options_.sets);
    if (auto ending = open_file()) return with_words(*ending);
    if (auto problem = apply_sets(run_, options_.sets))
        return with_words(Finish::complain(kUsage, *problem));
    if (auto problem = missing_calibration()) return with_words(Finish::complain(kUsage, *problem));
    // A check of the board doesn't set the line; the window's search at start-up does.
    run_.port.RTSEnable(!run_.form.mnuComMode1.Checked.get());
    if (options_.command == Command::Simulate) return simulate();
    if (auto ending = operate()) {
        // The dump of a read shows what there is, whatever became of the read: an older file in its
        // place would be taken for it.
        const bool was_read = row_.outputs == Outputs::OfRead;
        if (!was_read && ending->result.exit != kFailed) return with_words(*ending);
        const auto unwritten = write_dump();
        if (unwritten && ending->result.error.empty())
            ending->result.error = unwritten->result.error;
        return with_words(*ending);
    }
    if (auto ending = save_file()) return with_words(*ending);
    if (auto ending = write_dump()) return with_words(*ending);
    return with_words(Finish::of(Outcome::Success));
}

// An empty name can't be written. It is reported before a part or a file is touched.
Commands::Ending Commands::check_outputs() const {
    for (const auto* output : {&options_.save, &options_.dump}) {
        if (!*output) continue;
        const auto name = (*output)->string();
        if (name.empty())
            return Finish::complain(kFailed, fmt::format(text::kCantWrite, "''",
                                                         std::generic_category().message(ENOENT)));
        // The writer would refuse it too, but only once the part has been read.
        if (!is_utf8(name))
            return Finish::complain(kFailed, fmt::format(text::kCantWrite, printable(name),
                                                         "its name is not valid UTF-8"));
    }
    return {};
}

void Commands::tell_changes() {
    auto& bar = run_.form.P_Bar;
    const auto tell = [this, &bar] {
        const int value = bar.Value.get(), max = bar.Max.get();
        if (std::exchange(told_value_, value) == value && std::exchange(told_max_, max) == max)
            return;
        told_max_ = max;
        events_.progress(value, max);
    };
    connections_.push_back(run_.messages.shown.connect(
        [this](const ShownMessage& message) { events_.message(message); }));
    connections_.push_back(
        run_.log.appended.connect([this](const std::string& line) { events_.log(line); }));
    connections_.push_back(bar.Value.observe([tell](int) { tell(); }));
    connections_.push_back(bar.Visible.observe([this, tell](bool visible) {
        if (visible) {
            tell();
        } else {
            told_value_ = told_max_ = -1;
            events_.progress_off();
        }
    }));
}

Commands::Ending Commands::start() {
    if (options_.catalogue) run_.session.CatalogueFile = options_.catalogue->string();
    switch (StartUp{run_}.prepare()) {
        case StartUp::End::Ready:
            break;
        case StartUp::End::CatalogueFailed:
            return Finish::complain(kUsage,
                                    fmt::format(text::kNoCatalogue, run_.session.CatalogueFile));
        case StartUp::End::EndProcess:
            return Finish::complain(kFailed,
                                    fmt::format(text::kNoWorkFolder, run_.session.TempDir));
    }
    use_own_display_files();
    known_problem_ = run_.settings.problem();
    ports_.choose(run_);
    return {};
}

// Several runs and the window may share a work folder, for example on a production line. Without
// room for temporary files the views work without them.
void Commands::use_own_display_files() {
    auto& folder = display_files_.emplace(QDir::tempPath() + "/quillon-cli-XXXXXX");
    run_.views.keep_files_in(folder.isValid() ? with_separator(folder.path().toStdString()) : "");
}

// Unsaved settings are only reported: the operation keeps its status.
void Commands::tell_unsaved_settings() {
    const auto problem = run_.settings.problem();
    if (!problem.empty() && problem != known_problem_) run_.messages.AddMessage(problem);
}

// The device is chosen here but selected only once. With a file, that is the first step of the Open
// sequence. A second selection would report a firmware version that nobody has read yet.
Commands::Ending Commands::choose_device() {
    if (options_.command == Command::Detect && !options_.device) return {};
    auto& list = run_.form.Combo_device;
    int index = run_.settings.number("deviceNew", -1);
    if (options_.device) {
        index = -1;
        for (std::size_t i = 0; i < list.Items.get().size(); ++i)
            if (list.Items.get()[i] == *options_.device) index = static_cast<int>(i);
        if (index < 0)
            return Finish::complain(kUsage, fmt::format(text::kUnknownDevice, *options_.device));
    }
    if (index < 0 || static_cast<std::size_t>(index) >= list.Items.get().size())
        return Finish::complain(kUsage, std::string{text::kNoDevice});
    list.show(index);
    if (!options_.hex) run_.selection.Combo_device_Click();
    return {};
}

Commands::Ending Commands::open_file() {
    if (!options_.hex) return {};
    if (run_.files.mnuFileOpen_Click(options_.hex) != Token::OK) return Finish::of(Outcome::Failed);
    if (options_.device && run_.session.DeviceName != *options_.device)
        run_.messages.AddMessage(
            fmt::format(text::kOtherDevice, run_.session.DeviceName, printable(*options_.device)));
    if (auto problem = missing_data()) return Finish::complain(kFailed, *problem);
    return {};
}

// A side without data in the file would be written blank, and with success.
std::optional<std::string> Commands::missing_data() const {
    if (row_.hex == HexNeed::AnyFile) return {};
    const auto name = printable(options_.hex->string());
    const auto sides = run_.files.file_sides();
    if (!run_.files.file_had_data()) return fmt::format(text::kNoData, name);
    if (row_.hex == HexNeed::ProgramSide && !sides.program)
        return fmt::format(text::kNoProgramSide, name);
    // A device without EEPROM is the flow's to refuse, whatever the file holds.
    if (row_.hex == HexNeed::Eeprom && !sides.eeprom && run_.session.EepBytes != 0)
        return fmt::format(text::kNoEeprom, name, run_.session.DeviceName);
    return {};
}

// The value that the catalogue shows must not go into a part by accident.
std::optional<std::string> Commands::missing_calibration() const {
    const auto& session = run_.session;
    const bool decided =
        run_.form.Chk_12F_CalibData_Select.Checked.get() ||
        std::ranges::count(options_.sets, "Text_Calib_Data", &NamedValue::name) > 0;
    const bool has_word =
        logs_calibration(session.PgmType) && module_of(session.DeviceName) == Module::Generic;
    if (decided || !has_word) return std::nullopt;
    return std::string{text::kNoCalibrationEntry};
}

Commands::Ending Commands::operate() {
    if (row_.flow == nullptr) return {};
    auto* const socket = ports_.socket();
    if (socket != nullptr)
        if (auto problem = socket->insert(run_.session)) return Finish::complain(kUsage, *problem);
    const auto outcome = row_.flow(run_);
    // Saved after a failed operation too: the part keeps what was done to it.
    const auto unsaved = socket != nullptr ? socket->save() : std::nullopt;
    if (outcome == Outcome::Success)
        return unsaved ? Ending{Finish::complain(kFailed, *unsaved)} : Ending{};
    auto finish = Finish::of(outcome);
    finish.result.error = unsaved.value_or("");
    return finish;
}

Commands::Ending Commands::save_file() {
    if (!options_.save) return {};
    const auto outcome = run_.files.mnuFileSave_Click(options_.save);
    return outcome == Outcome::Success ? Ending{} : Finish::of(outcome);
}

Commands::Ending Commands::write_dump() {
    if (!options_.dump) return {};
    const auto problem = run_.host.write_file(*options_.dump, dump(run_.session, run_.form));
    if (!problem) return {};
    return Finish::complain(kFailed,
                            fmt::format(text::kCantWrite, options_.dump->string(), *problem));
}

Finish Commands::list_devices() {
    auto& session = run_.session;
    for (const auto& name : run_.form.Combo_device.Items.get()) {
        // A block that can't be read would leave the previous device's record in place.
        static_cast<DeviceRecord&>(session) = {};
        run_.catalogue.LoadDeviceRecord(name);
        events_.device({name, session.PgmType.text(), session.PgmWords, session.EepBytes,
                        std::string{name_of(module_of(name))}});
    }
    return Finish::of(Outcome::Success);
}

// Runs until it is ended from outside, and that is its success.
Finish Commands::simulate() {
    auto& socket = *ports_.socket();
    if (auto problem = socket.insert(run_.session)) return Finish::complain(kUsage, *problem);
    const auto problem = ports_.serve([this](const std::string& path) { events_.serving(path); });
    const auto unsaved = socket.save();
    if (problem || unsaved) return Finish::complain(kFailed, problem ? *problem : *unsaved);
    return Finish::of(Outcome::Success);
}

Finish Commands::with_words(Finish finish) const {
    const auto& session = run_.session;
    auto& result = finish.result;
    result.ResultPgm = quillon::text(session.ResultPgm);
    result.ResultEep = quillon::text(session.ResultEep);
    result.ResultCfg = quillon::text(session.ResultCfg);
    result.ResultAll = session.ResultAll;
    result.CodeProtect = quillon::text(session.CodeProtect);
    result.TryCount = session.TryCount;
    result.PassCount = session.PassCount;
    if (result.exit == kFailed) result.mismatches = mismatches(run_.form);
    if (options_.command == Command::Detect && result.exit == kSuccess)
        result.FirmwareText = session.FirmwareText;
    if (options_.command == Command::CalibRead && result.exit == kSuccess) {
        result.CalibWord = fmt::format("{:02X}{:02X}", session.CalibHi, session.CalibLo);
        result.Text_Calib_Data = run_.form.Text_Calib_Data.Text.get();
    }
    return finish;
}

}  // namespace quillon::cli

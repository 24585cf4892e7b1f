// SPDX-License-Identifier: MIT
#include "support/bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <utility>

#include "app/text.h"
#include "board/session_facts.h"
#include "board/target_facts.h"
#include "run/start_up.h"
#include "support/bench_image.h"

namespace quillon::test {

namespace {

constexpr int kPort = 3;
// No operation of a part with 8192 words takes that long.
constexpr auto kLongestOperation = 10min;

// The blocks of the shipped file by device, each without its first and last line.
const std::map<std::string, Lines>& shipped_blocks() {
    static const auto blocks = [] {
        std::map<std::string, Lines> found;
        std::ifstream file{QUILLON_CATALOGUE};
        std::string line;
        Lines* block = nullptr;
        while (std::getline(file, line)) {
            if (trim(line) == "#END") block = nullptr;
            if (block != nullptr) block->push_back(line);
            if (trim(line) != "#BEGIN") continue;
            std::getline(file, line);
            block = &found[trim(line)];
        }
        return found;
    }();
    return blocks;
}

std::string row_with(const std::string& row,
                     const std::vector<std::pair<std::string, std::string>>& other_values) {
    for (const auto& [key, value] : other_values)
        if (row.starts_with(key + " ")) return key + " " + value;
    return row;
}

std::vector<const Control*> locked_controls(const MainForm& form) {
    return {&form.Text_ID,
            &form.Command_program,
            &form.Command_read,
            &form.Command_Verify,
            &form.Command_blank,
            &form.Cmd_Extend_Program,
            &form.Cmd_open,
            &form.Cmd_save,
            &form.Command_com,
            &form.SSTab_Config,
            &form.SSTab_MCU_Information,
            &form.Combo_device,
            &form.file,
            &form.mnuAsmC,
            &form.mnuRELOAD,
            &form.mnuASMwithRELOAD,
            &form.mnuAsmReloadProgram,
            &form.mnuHelp,
            &form.mnuPcBufferMemoryClear};
}

// The devices that the flows' tests choose among.
const std::vector<CatalogueBlock>& usual_blocks() {
    static const std::vector<CatalogueBlock> blocks{
        {"PIC16F873"},  {"PIC16F874"},  {"PIC16F876"},  {"PIC16F877"}, {"PIC16F873A"},
        {"PIC16F874A"}, {"PIC16F876A"}, {"PIC16F877A"}, {"PIC16F84A"},
    };
    return blocks;
}

}  // namespace

std::string catalogue_of(const std::vector<CatalogueBlock>& blocks) {
    std::string text = "VERSION 6 . 00\n";
    for (const auto& block : blocks) {
        text += "#BEGIN\n" + std::string{block.name.empty() ? block.device : block.name} + "\n";
        for (const auto& row : shipped_blocks().at(std::string{block.device}))
            text += row_with(row, block.other_values) + "\n";
        text += "#END\n";
    }
    return text;
}

Bench::Bench(std::string_view device, std::vector<CatalogueBlock> blocks) {
    folder.write("device6.ini", catalogue_of(blocks.empty() ? usual_blocks() : blocks));
    host.app_folder = host.documents = folder.path();
    store.write(Settings::kSection, "ComNo", std::to_string(kPort));
    run = std::make_unique<Run>(store, host, port, dialogs);
    EXPECT_EQ(StartUp{*run}.prepare(), StartUp::End::Ready);
    shown = std::make_unique<MessageLog>(run->messages);
    if (!device.empty()) {
        put_into_socket(device);
        select(device);
        fill_image();
    }
    shown->lines.clear();
    watch_the_clock();
}

Bench::~Bench() {
    EXPECT_FALSE(port.is_open());
    EXPECT_EQ(port.opens(), port.closes());
    EXPECT_TRUE(buttons_stay_locked || controls_are_back());
    EXPECT_FALSE(form().WaitCursor.get());
    EXPECT_FALSE(form().P_Bar.Visible.get());
    EXPECT_FALSE(session().ConfigFromFile);
    EXPECT_EQ(notes_expected ? Lines{} : board.notes(), Lines{});
}

void Bench::select(std::string_view device) {
    ASSERT_TRUE(form().Combo_device.select(device)) << device;
}

void Bench::put_into_socket(std::string_view device) {
    const std::string selected = this->device();
    select(device);
    target() = blank_target(facts_of(session()));
    if (!selected.empty()) select(selected);
    fill_image();
    shown->lines.clear();
}

void Bench::fill_image() {
    fill_pattern(session());
    run->views.ShowConfigSummary();
}

void Bench::clear_image() {
    select(device());
    shown->lines.clear();
}

void Bench::program_target() { put_into_part(session(), target()); }

void Bench::protect_target() {
    target().config[0] = static_cast<std::uint16_t>(target().config[0] & ~target().protect_mask);
}

std::string Bench::wire() {
    std::string text = port.wire().text();
    port.wire().clear();
    return text;
}

std::string Bench::log() const {
    std::ifstream file{std::filesystem::path{run->session.TempDir} / "LOG_NEW0.txt"};
    return {std::istreambuf_iterator<char>{file}, {}};
}

std::vector<std::uint8_t> Bench::program_image() const {
    const auto& image = run->session.PgmMem;
    return {image.begin(), image.begin() + 2 * run->session.PgmWords};
}

std::vector<std::uint8_t> Bench::eeprom_image() const {
    const auto& image = run->session.EepMem;
    return {image.begin(), image.begin() + 2 * run->session.EepBytes};
}

bool Bench::controls_are_back() const {
    // The per-area dialog has nothing for one-time parts, so its button stays off for these types.
    constexpr std::array<std::string_view, 4> kNoAreaOperations{"12C5", "12C6", "EPROM", "EPROM2"};
    const bool has_areas = std::ranges::find(kNoAreaOperations, run->session.PgmType.text()) ==
                           kNoAreaOperations.end();
    return std::ranges::all_of(locked_controls(run->form), [&](const Control* control) {
        if (control == &run->form.Cmd_Extend_Program && !has_areas) return !control->Enabled.get();
        return control->Enabled.get();
    });
}

Lines Bench::enabled_buttons() const {
    Lines names;
    for (const auto* control : locked_controls(run->form))
        if (control->Enabled.get()) names.push_back(control->name);
    return names;
}

void Bench::when_shown(std::string_view message, std::function<void()> action) {
    watches_.push_back(
        run->messages.shown.connect([text = std::string{message}, action = std::move(action)](
                                        const ShownMessage& shown) mutable {
            if (shown.text == text && action) std::exchange(action, nullptr)();
        }));
}

void Bench::restart_the_clock() { end_ = host.now() + kLongestOperation; }

void Bench::watch_the_clock() {
    restart_the_clock();
    host.on_pump = [this] {
        if (gives_up_ && gives_up_()) {
            gives_up_ = nullptr;
            throw Abandoned{Abandoned::Reason::Closed};
        }
        if (stops_ && stops_()) {
            stops_ = nullptr;
            run->flows.Command_stop_Click();
        }
        if (host.now() < end_) return;
        ADD_FAILURE() << "a wait without end";
        throw Abandoned{Abandoned::Reason::Deadline};
    };
}

}  // namespace quillon::test

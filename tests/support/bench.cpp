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
#include "board/target_facts.h"
#include "run/start_up.h"

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

TargetFacts facts_of(const DeviceRecord& device) {
    TargetFacts facts;
    facts.name = device.DeviceName;
    facts.type = device.PgmType.text();
    facts.program_words = static_cast<std::size_t>(device.PgmWords);
    facts.eeprom_cells = static_cast<std::size_t>(device.EepBytes);
    facts.protect_mask = static_cast<std::uint16_t>(device.CpMask);
    for (std::size_t n = 1; n <= kConfigWords; ++n) {
        facts.config_present[n - 1] = device.ConfigPresent[n];
        facts.config_default[n - 1] = static_cast<std::uint16_t>(device.ConfigDefault[n]);
        facts.config_mask[n - 1] = static_cast<std::uint16_t>(device.ConfigMask[n]);
        facts.config_force[n - 1] = static_cast<std::uint16_t>(device.ConfigForce[n]);
    }
    return facts;
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
        text += "#BEGIN\n" + std::string{block.device} + "\n";
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

// Odd factors and strides that share no divisor with a block, a page or a part's size, so that a
// word that is swapped, shifted or sent twice shows.
void Bench::fill_image() {
    auto& image = session();
    const auto put = [](auto& bytes, std::size_t word, unsigned value) {
        bytes[2 * word] = static_cast<std::uint8_t>(value >> 8U);
        bytes[2 * word + 1] = static_cast<std::uint8_t>(value);
    };
    for (unsigned w = 0; w < static_cast<unsigned>(image.PgmWords); ++w)
        put(image.PgmMem, w, (w * 0x1A35U + 0x0123U) & 0x3FFFU);
    for (unsigned c = 0; c < static_cast<unsigned>(image.EepBytes); ++c)
        put(image.EepMem, c, 0x3F00U | ((c * 37U + 5U) & 0xFFU));
    for (unsigned digit = 0; digit < 4; ++digit)
        put(image.CfgIdMem, digit, 0x3FF0U | (0xAU + digit));
    // The first free option of the word: the oscillator's lowest bit goes.
    image.ConfigWord[1] = (image.ConfigDefault[1] | image.ConfigForce[1]) & ~1U;
    put(image.CfgIdMem, 7, image.ConfigWord[1]);
    run->views.ShowConfigSummary();
}

void Bench::clear_image() {
    select(device());
    shown->lines.clear();
}

void Bench::program_target() {
    for (std::size_t w = 0; w < target().program.size(); ++w)
        target().program[w] =
            static_cast<std::uint16_t>(session().PgmMem[2 * w] << 8 | session().PgmMem[2 * w + 1]);
    for (std::size_t c = 0; c < target().eeprom.size(); ++c)
        target().eeprom[c] = session().EepMem[2 * c + 1];
    for (std::size_t i = 0; i < target().id.size(); ++i)
        target().id[i] = static_cast<std::uint16_t>(session().CfgIdMem[2 * i] << 8 |
                                                    session().CfgIdMem[2 * i + 1]);
    target().config[0] = static_cast<std::uint16_t>(session().ConfigWord[1]);
}

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
    return std::ranges::all_of(locked_controls(run->form),
                               [](const Control* control) { return control->Enabled.get(); });
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

void Bench::watch_the_clock() {
    const auto end = host.now() + kLongestOperation;
    host.on_pump = [this, end] {
        if (gives_up_ && gives_up_()) {
            gives_up_ = nullptr;
            throw Abandoned{Abandoned::Reason::Closed};
        }
        if (host.now() < end) return;
        ADD_FAILURE() << "a wait without end";
        throw Abandoned{Abandoned::Reason::Deadline};
    };
}

}  // namespace quillon::test

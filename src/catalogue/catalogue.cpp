// SPDX-License-Identifier: MIT
#include "catalogue/catalogue.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/own_files.h"
#include "app/text.h"
#include "catalogue/catalogue_file.h"
#include "catalogue/catalogue_texts.h"
#include "catalogue/record_loader.h"

namespace quillon {

namespace {

constexpr std::string_view kFileName = "device6.ini";
constexpr std::size_t kMostNames = 1025;
constexpr std::size_t kMostListed = 1024;  // entries 0 to 1023 reach Combo_device
constexpr std::size_t kMostComments = 129;
constexpr std::size_t kProcessedRows = 256;
constexpr std::size_t kProblemsShown = 8;

void redraw_grids(MainForm& form, bool on) {
    for (auto& grid : form.HFGrids) grid.set_redraw(on);
}

// The type that the block names, or the former device's if it names none.
ProgrammingType type_of(const DeviceBlock& block, ProgrammingType former) {
    for (const auto& row : block.rows)
        if (upper(row[0]) == "PGM_TYPE" && !row[1].empty()) former = programming_type(row[1]);
    return former;
}

}  // namespace

Catalogue::Catalogue(Session& session, MainForm& form, BoardForm& board, Host& host,
                     Dialogs& dialogs)
    : session_{session}, form_{form}, board_{board}, host_{host}, dialogs_{dialogs} {}

std::string Catalogue::path() const {
    return session_.CatalogueFile.empty() ? session_.AppPath + std::string{kFileName}
                                          : session_.CatalogueFile;
}

void Catalogue::LoadDeviceList() {
    session_.DeviceList.clear();
    const auto text = read_catalogue_file(path(), host_);
    if (!text || !scan_names(LineReader{*text})) {
        fail_start();
        return;
    }
    form_.Combo_device.clear();
    auto listed = session_.DeviceList;
    listed.resize(std::min(listed.size(), kMostListed));
    form_.Combo_device.Items.set(std::move(listed));
    write_device_list();
}

// False where the file is beyond its limits.
bool Catalogue::scan_names(LineReader reader) {
    while (reader.next()) {
        const LineTokens& tokens = reader.tokens();
        if (tokens.too_many()) return false;
        // The version repeats the third token and ignores a fourth. That is its form.
        if (tokens[0] == "VERSION")
            session_.CatVersion =
                fmt::format("{}{}{}{}", tokens[1], tokens[2], tokens[3], tokens[3]);
        if (tokens[0] != "#BEGIN" || !reader.next()) continue;
        if (tokens.too_many()) return false;
        if (!tokens[0].starts_with("PIC") && !tokens[0].starts_with("ZQ-")) continue;
        if (session_.DeviceList.size() == kMostNames) return false;
        session_.DeviceList.emplace_back(tokens[0]);
    }
    return true;
}

// No other code reads this file: if it can't be written, start-up continues. Without a work folder
// it isn't written, as it would land in the current folder.
void Catalogue::write_device_list() const {
    if (session_.TempDir.empty()) return;
    std::string list;
    for (const auto& name : form_.Combo_device.Items.get()) list += name + '\n';
    write_fresh(session_.TempDir + "Support_PIC_List.txt", list);
}

void Catalogue::fail_start() {
    session_.DeviceList.clear();
    session_.CatError = true;
    const bool named = path() != session_.AppPath + std::string{kFileName};
    dialogs_.box({.title = std::string{catalogue_text::kNoCatalogueTitle},
                  .text = named ? std::string{catalogue_text::kNoNamedCatalogue} + path()
                                : std::string{catalogue_text::kNoCatalogue} + session_.AppPath,
                  .icon = BoxIcon::Critical});
}

void Catalogue::LoadDeviceRecord(std::string_view name) {
    session_.CalibText.clear();
    session_.EraseBlock18 = {};
    comments_.clear();
    problems_.clear();
    redraw_grids(form_, false);
    if (const auto text = read_catalogue_file(path(), host_))
        scan_for(name, LineReader{*text});
    else
        problems_.emplace_back(catalogue_text::kCannotOpen);
    redraw_grids(form_, true);
    report();
}

// Loads the first block of that name. Without one nothing is loaded and no message is shown.
void Catalogue::scan_for(std::string_view name, LineReader reader) {
    while (reader.next()) {
        const LineTokens& tokens = reader.tokens();
        if (tokens[0] == "CMT") take_comment(reader);
        if (tokens[0] != "#BEGIN" || !reader.next() || tokens[0] != name) continue;
        start_block();
        auto block = ReadDeviceBlock(reader);
        if (block.error.empty())
            process(block);
        else
            problems_.push_back(std::move(block.error));
        return;
    }
    problems_.clear();
}

void Catalogue::take_comment(const LineReader& reader) {
    const LineTokens& tokens = reader.tokens();
    if (comments_.size() == kMostComments) {
        add_problem(reader.line_number(), fmt::format("CMT {}", tokens[1]),
                    catalogue_text::kTooManyComments);
        return;
    }
    comments_.push_back({std::string{tokens[1]}, std::string{tokens[2]}, std::string{tokens[3]}});
}

// The masks are cleared with the words: a word that the new device doesn't have has no bits. Sizes,
// power order and the three whole erase records keep their values until a row of the block replaces
// them.
void Catalogue::start_block() {
    session_.ConfigPresent = {};
    session_.ConfigDefault = {};
    session_.ConfigMask = {};
    session_.ConfigForce = {};
    session_.ConfigWidth = {};
    session_.CatError = false;
    session_.CatErrorText.clear();
    options_.clear();
}

void Catalogue::process(const DeviceBlock& block) {
    RecordLoader loader{session_, form_, board_, type_of(block, session_.PgmType)};
    for (std::size_t i = 0; i < block.rows.size(); ++i) {
        const auto& source = block.sources[i];
        if (source.too_many_tokens)
            add_problem(source.line, source.text, catalogue_text::kTooManyTokens);
        if (i >= kProcessedRows) continue;
        const RowProblem problem = loader.take(block.rows[i]);
        if (!problem.empty()) add_problem(source.line, source.text, problem);
    }
    options_ = std::move(loader.options());
    for (auto& grid : form_.HFGrids) {
        grid.CursorColumn.set(1);
        grid.CursorRow.set(grid.rows() == 0 ? 0 : static_cast<int>(grid.rows()) - 1);
    }
    check_former_eeprom();
}

// A block without the size keeps the former device's, which may be too large for its own type.
void Catalogue::check_former_eeprom() {
    if (session_.EepBytes <= most_eeprom_cells(session_.PgmType)) return;
    session_.EepBytes = session_.EepBytesCat = 0;
    problems_.emplace_back(catalogue_text::kFormerEeprom);
}

void Catalogue::add_problem(int line, std::string_view text, std::string_view reason) {
    problems_.push_back(fmt::format(catalogue_text::kBadLine, line, trim(text), reason));
}

void Catalogue::report() {
    if (problems_.empty()) return;
    if (problems_.size() > kProblemsShown) {
        const std::size_t more = problems_.size() - kProblemsShown;
        problems_.resize(kProblemsShown);
        problems_.push_back(fmt::format(catalogue_text::kMoreLines, more));
    }
    session_.CatError = true;
    session_.CatErrorText = fmt::format("{}", fmt::join(problems_, catalogue_text::kNextLine));
    dialogs_.box({.title = std::string{catalogue_text::kBlockFailedTitle},
                  .text = std::string{catalogue_text::kBlockFailed} + session_.CatErrorText,
                  .icon = BoxIcon::Critical});
}

}  // namespace quillon

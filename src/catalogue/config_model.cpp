// SPDX-License-Identifier: MIT
#include "catalogue/config_model.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

#include "app/text.h"
#include "catalogue/catalogue_texts.h"
#include "catalogue/config_row.h"
#include "image/config_area.h"

namespace quillon {

namespace {

std::size_t index_of(int n) { return static_cast<std::size_t>(n); }

// One word's options. Each search starts at the last match.
class OptionSearch {
  public:
    OptionSearch(const std::vector<FieldOption>& options, int word)
        : options_{options}, word_{word} {}

    // The next option that satisfies `wanted`; the next search starts there. nullptr if there is
    // none; the next search then starts where this one did.
    template <typename Wanted>
    const FieldOption* find(Wanted wanted) {
        for (std::size_t i = at_; i < options_.size(); ++i) {
            if (options_[i].word != word_ || !wanted(options_[i])) continue;
            at_ = i;
            return &options_[i];
        }
        return nullptr;
    }

  private:
    const std::vector<FieldOption>& options_;
    int word_;
    std::size_t at_ = 0;
};

// Writes the columns' titles into the heading row. A window always centres headings, so the "^"
// that asks for it is removed.
void show_format(Grid& grid, std::string_view format) {
    for (std::size_t column = 0; column < std::tuple_size_v<Grid::Row>; ++column) {
        const std::size_t end = format.find('|');
        std::string_view title = format.substr(0, end);
        if (title.starts_with('^')) title.remove_prefix(1);
        grid.set_cell(0, column, std::string{title});
        format = end == std::string_view::npos ? std::string_view{} : format.substr(end + 1);
    }
}

// The first `count` characters of a UTF-8 text.
std::string first_characters(const std::string& text, std::size_t count) {
    std::size_t end = 0;
    for (; end < text.size(); ++end) {
        const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
        if (begins && count-- == 0) break;
    }
    return text.substr(0, end);
}

}  // namespace

ConfigModel::ConfigModel(Session& session, MainForm& form, Messages& messages, MemoryViews& views,
                         const Catalogue& catalogue)
    : session_{session}, form_{form}, messages_{messages}, views_{views}, catalogue_{catalogue} {}

void ConfigModel::InitConfigGrids() {
    ResetConfigGrids();
    form_.CmbInit.Visible.set(false);
    form_.CmbInit.clear();
    form_.TxtInit.Visible.set(false);
    form_.TxtInit.Text.set("");
}

void ConfigModel::ResetConfigGrids() {
    for (int n = 1; n <= kConfigWords; ++n) {
        Grid& grid = form_.HFGrid(n);
        grid.set_redraw(false);
        grid.clear();
        grid.CursorRow.set(0);
        grid.CursorColumn.set(0);
        show_format(grid, fmt::format(catalogue_text::kGridFormat, n));
        grid.set_redraw(true);
    }
}

void ConfigModel::ConfigGridChanged(int n) {
    Grid& grid = form_.HFGrid(n);
    grid.set_redraw(false);
    const std::size_t at = index_of(n);
    std::uint32_t& word = session_.ConfigWord[at];
    const std::uint32_t width = session_.ConfigWidth[at];
    if (!session_.ConfigFromFile)
        word = (session_.ConfigMask[at] & width) | session_.ConfigForce[at];
    OptionSearch search{catalogue_.options(), n};
    for (std::size_t row = 1; row < grid.rows(); ++row) {
        const std::string& name = grid.cell(row, 0);
        const std::string& option = grid.cell(row, 1);
        if (option.empty()) continue;
        const FieldOption* const chosen = search.find([&](const FieldOption& candidate) {
            return candidate.name == name && candidate.option == option;
        });
        if (chosen != nullptr) word &= chosen->value | (chosen->mask ^ width);
    }
    show_config_heading(session_, form_, n, "0x");
    grid.set_redraw(true);
    store_bytes(n);
    views_.ShowConfigSummary();
}

// A PIC18 file without configuration records is loaded on top of CfgBytes18, so the options that
// the user has set must be in both byte images.
void ConfigModel::store_bytes(int n) {
    const std::size_t at = index_of(n);
    const std::uint32_t word = session_.ConfigWord[at];
    config_area::put_word(session_, at, word);
    session_.CfgBytes18[2 * at - 2] = static_cast<std::uint8_t>(word);
    session_.CfgBytes18[2 * at - 1] = static_cast<std::uint8_t>(word >> 8);
}

void ConfigModel::put_word(int n, std::uint32_t word) {
    const std::size_t at = index_of(n);
    session_.ConfigWord[at] = (word & session_.ConfigMask[at]) | session_.ConfigForce[at];
    store_bytes(n);
    show_word(n);
    views_.ShowConfigSummary();
}

ConfigModel::FieldChange ConfigModel::set_field(int n, std::string_view field,
                                                std::string_view option) {
    bool found = false;
    for (const auto& candidate : catalogue_.options()) {
        if (candidate.word != n || candidate.name != field) continue;
        found = true;
        if (candidate.option != option) continue;
        put_word(n, (session_.ConfigWord[index_of(n)] & ~candidate.mask) | candidate.value);
        return FieldChange::Done;
    }
    return found ? FieldChange::NoOption : FieldChange::NoField;
}

void ConfigModel::ShowConfigWords() {
    protect_mixed_ = false;
    for (std::size_t n = 1; n <= kConfigWords; ++n) {
        if (session_.ConfigFromFile) break;
        session_.ConfigWord[n] =
            (session_.ConfigMask[n] & session_.ConfigWord[n]) | session_.ConfigForce[n];
    }
    for (int n = 1; n <= kConfigWords; ++n) show_word(n);
}

void ConfigModel::show_word(int n) {
    Grid& grid = form_.HFGrid(n);
    grid.set_redraw(false);
    // Tests which words the device has, not which tabs are visible: during a selection the tabs are
    // still the former device's.
    if (session_.ConfigPresent[index_of(n)]) show_options(n);
    show_config_heading(session_, form_, n, "0x");
    grid.set_redraw(true);
}

// A number that matches none of a field's options leaves the cell unchanged.
void ConfigModel::show_options(int n) {
    Grid& grid = form_.HFGrid(n);
    const std::uint32_t word = session_.ConfigWord[index_of(n)];
    OptionSearch search{catalogue_.options(), n};
    for (std::size_t row = 1; row < grid.rows(); ++row) {
        const std::string name = grid.cell(row, 0);
        if (name.empty()) continue;
        // Mask and value of this field's last option that was tried.
        std::uint32_t CfgRowMask = 0;
        std::uint32_t CfgRowValue = 0;
        const FieldOption* const standing = search.find([&](const FieldOption& candidate) {
            if (candidate.name != name) return false;
            CfgRowMask = candidate.mask;
            CfgRowValue = candidate.value;
            return (word & CfgRowMask) == CfgRowValue;
        });
        if (standing != nullptr)
            grid.set_cell(row, 1, standing->option);
        else if (name == "CP" && (word & CfgRowMask) != CfgRowMask)
            protect_mixed_ = true;
    }
}

bool ConfigModel::has_field(int n, int row) const {
    return n >= 1 && n <= kConfigWords && row >= 1 && index_of(row) < form_.HFGrid(n).rows();
}

void ConfigModel::ShowFieldHelp(int n, int row) {
    if (!has_field(n, row)) return;
    const auto& table = catalogue_.CmtTable();
    const auto help =
        std::ranges::find(table, form_.HFGrid(n).cell(index_of(row), 0), &CmtRow::key);
    if (help != table.end()) messages_.ShowMessage(help->title, help->text);
}

bool ConfigModel::is_option_cell(int n, int row, int column) const {
    return column == 1 && !session_.DeviceName.empty() && has_field(n, row);
}

void ConfigModel::FieldClicked(int n, int row, int column) {
    if (!is_option_cell(n, row, column)) return;
    Grid& grid = form_.HFGrid(n);
    grid.CursorRow.set(row);
    grid.CursorColumn.set(column);
    const std::string& name = grid.cell(index_of(row), 0);
    const std::string& option = grid.cell(index_of(row), 1);

    std::vector<std::string> options;
    for (const auto& candidate : catalogue_.options())
        if (candidate.word == n && candidate.name == name) options.push_back(candidate.option);
    const auto standing = std::ranges::find(options, option);
    const auto index = standing == options.end() ? -1 : standing - options.begin();

    form_.CmbInit.clear();
    form_.CmbInit.Items.set(std::move(options));
    form_.CmbInit.ListIndex.set(static_cast<int>(index));
    form_.CmbInit.Text.set(option);
    form_.CmbInit.Visible.set(true);
    ShowFieldHelp(n, row);
}

int ConfigModel::current_word() const { return form_.SSTab_Config.Tab.get() + 1; }

void ConfigModel::CmbInit_Click() {
    const int n = current_word();
    if (n >= 1 && n <= kConfigWords && has_field(n, form_.HFGrid(n).CursorRow.get())) {
        enter(n, form_.CmbInit.Text.get());
        Grid& grid = form_.HFGrid(n);
        grid.CursorRow.set(static_cast<int>(grid.rows()) - 1);
    }
    form_.CmbInit.Visible.set(false);
}

bool ConfigModel::FieldTyped(int n, int row, int column, char key) {
    if (!is_option_cell(n, row, column) || !hex_digit(key)) return false;
    form_.HFGrid(n).CursorRow.set(row);
    form_.HFGrid(n).CursorColumn.set(column);
    form_.CmbInit.Visible.set(false);
    form_.TxtInit.Text.set(upper(std::string_view{&key, 1}));
    form_.TxtInit.Visible.set(true);
    return true;
}

void ConfigModel::TxtInit_Done() {
    constexpr std::size_t kKeptCharacters = 8;
    const int n = current_word();
    std::string value = form_.TxtInit.Text.get();
    if (!value.empty() && n >= 1 && n <= kConfigWords &&
        has_field(n, form_.HFGrid(n).CursorRow.get())) {
        if (value.size() == 1) value = "0" + value;
        const Grid& grid = form_.HFGrid(n);
        const std::string& cell = grid.cell(index_of(grid.CursorRow.get()), 1);
        enter(n, first_characters(cell, kKeptCharacters) + value);
    }
    form_.TxtInit.Visible.set(false);
}

void ConfigModel::enter(int n, std::string value) {
    Grid& grid = form_.HFGrid(n);
    const std::size_t row = index_of(grid.CursorRow.get());
    const std::string field = grid.cell(row, 0);
    const bool known = std::ranges::any_of(catalogue_.options(), [&](const FieldOption& option) {
        return option.word == n && option.name == field && option.option == value;
    });
    const auto unknown = known ? std::string{} : fmt::format(catalogue_text::kNoSuchOption, value);
    grid.set_cell(row, 1, std::move(value));
    ConfigGridChanged(n);
    if (!known) messages_.AddMessage(unknown);
}

void ConfigModel::Text_Config_Click() {
    views_.switch_config_radix();
    messages_.ShowMessage(catalogue_text::kConfigRadix);
}

}  // namespace quillon

// SPDX-License-Identifier: MIT
// The steps of the Open command in their order.
#include "files/hex_files.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

#include "app/folders.h"
#include "files/hex_files_texts.h"
#include "hex/hex_items.h"
#include "hex/text_file.h"
#include "image/file_names.h"
#include "image/fill.h"

namespace quillon {

namespace fs = std::filesystem;

namespace {

// Returns the name itself if nothing is found: it is refused later.
fs::path as_on_disk(const fs::path& name) {
    const fs::path found = on_disk(name);
    return found.empty() ? name : found;
}

// A text of megabytes isn't a device's name and must not be shown whole in a box.
std::string shown_name(std::string_view name) {
    constexpr std::size_t kMost = 64;
    if (name.size() <= kMost) return std::string{name};
    std::size_t end = kMost;
    while (end > 0 && (name[end] & 0xC0) == 0x80) --end;  // doesn't cut a character
    return std::string{name.substr(0, end)} + "…";
}

// The absolute path, as a dialog returns it. "." and ".." are removed only if the path then still
// leads to the same file, which a link in it may prevent.
fs::path whole_path(const fs::path& name) {
    std::error_code error;
    const fs::path whole = fs::absolute(name, error);
    if (error || name.empty()) return name;
    const fs::path found = as_on_disk(whole);
    const fs::path plain = found.lexically_normal();
    return fs::equivalent(found, plain, error) ? plain : found;
}

bool has_data_record(std::string_view text) {
    HexItems items{text};
    while (const auto item = items.next()) {
        const auto record = HexRecord::parse(*item);
        if (record && record->is_data()) return true;
    }
    return false;
}

}  // namespace

HexFiles::HexFiles(Session& session, MainForm& form, AboutForm& about, Settings& settings,
                   Host& host, Dialogs& dialogs, Messages& messages, MemoryViews& views,
                   ConfigModel& config, BufferCommands& buffer, DeviceSelection& selection)
    : session_{session},
      form_{form},
      settings_{settings},
      host_{host},
      dialogs_{dialogs},
      messages_{messages},
      views_{views},
      buffer_{buffer},
      selection_{selection},
      history_{form, settings},
      loader_{session, form, about, messages, views, config} {}

Token HexFiles::mnuFileOpen_Click(std::optional<fs::path> chosen) {
    former_ = ImageMark{session_};
    clear_entry_fields();
    selection_.Combo_device_Click();
    if (!device_selected()) return Token::NG;
    if (!chosen)
        chosen = dialogs_.file({.kind = FileDialog::Kind::Open,
                                .folder = path_of(settings_.text("OPEN_DIR0")),
                                .filter = std::string{hex_files_text::kOpenFilter},
                                .default_extension = "HEX",
                                .initial_name = "*.HEX"});
    const fs::path path = whole_path(chosen.value_or(fs::path{}));
    return open(path, text_of(path.parent_path()));
}

Token HexFiles::open_directly() {
    former_ = ImageMark{session_};
    clear_entry_fields();
    selection_.Combo_device_Click();
    if (!device_selected()) return Token::NG;
    return open(path_of(session_.HexFilePath), "");
}

Token HexFiles::mnuFileDirectOpen(const fs::path& folder) {
    former_ = ImageMark{session_};
    return open_from(folder);
}

Token HexFiles::open_from(const fs::path& folder) {
    clear_entry_fields();
    if (!device_selected()) return Token::NG;
    std::optional<fs::path> chosen;
    if (!session_.CommandLine.empty())
        chosen = path_of(session_.CommandLine);
    else
        chosen = dialogs_.file({.kind = FileDialog::Kind::Open,
                                .folder = folder,
                                .filter = std::string{hex_files_text::kDirectFilter},
                                .default_extension = "hex"});
    const fs::path path = whole_path(chosen.value_or(fs::path{}));
    const auto text = read(path);
    if (!text) return Token::NG;
    take_as_current(path);
    return load(*text);
}

void HexFiles::nmuFile_Click(int n) {
    former_ = ImageMark{session_};
    if (!select_device_of(n)) {
        messages_.ShowMessage(hex_files_text::kNoSuchDevice);
        session_.LoadResult = "NG";
        return;
    }
    const fs::path folder = path_of(history_.folder(n));
    // The entry was lower-cased when it was made. The file that the program was started with is not
    // what the user asks for here.
    session_.CommandLine.clear();
    open_from(as_on_disk(folder));
}

// Uses the saved index in the device list. If the list has changed since, the device is found by
// its name: a file never loads for another device than its entry shows.
bool HexFiles::select_device_of(int entry) {
    const auto name = history_.device_name(entry);
    const auto& devices = form_.Combo_device.Items.get();
    const auto at = std::ranges::find(devices, name);
    const int index = history_.device_index(entry);
    const bool as_saved = index >= 0 && std::cmp_less(index, devices.size()) &&
                          (name.empty() || devices[static_cast<std::size_t>(index)] == name);
    if (as_saved) return form_.Combo_device.select(index);
    return at != devices.end() && form_.Combo_device.select(static_cast<int>(at - devices.begin()));
}

void HexFiles::nmuHistryClear_Click() { history_.clear(); }

void HexFiles::restore_history() { history_.restore(); }

void HexFiles::clear_entry_fields() {
    form_.CmbInit.clear();
    form_.TxtInit.Text.set("");
    form_.Lbl_ID_Rev.Caption.set("");
    form_.Lbl_ID_Dev.Caption.set("");
}

bool HexFiles::device_selected() {
    const bool selected = selection_.Mcu_Selected_Check() == Token::OK;
    if (!selected) session_.LoadResult = "NG";
    return selected;
}

// The device was selected before the file was chosen, and that cleared the image. A user who only
// cancelled must know that the image is gone.
Token HexFiles::refuse(std::string_view reason) {
    messages_.ShowMessage(hex_files_text::kNotOpened, reason);
    if (former_.has_device() && !former_.is_of(session_))
        messages_.AddMessage(hex_files_text::kCleared);
    session_.LoadResult = "NG";
    return Token::NG;
}

std::optional<std::string> HexFiles::read(const fs::path& path) {
    auto file = read_text_file(path, host_);
    switch (file.problem) {
        case TextFile::Problem::None:
            return std::move(file.text);
        case TextFile::Problem::NotReadable:
            refuse("");
            break;
        case TextFile::Problem::TooLarge:
            refuse(hex_files_text::kTooLarge);
            break;
        case TextFile::Problem::NotText:
            refuse(hex_files_text::kNotText);
            break;
        case TextFile::Problem::Changing:
            refuse(hex_files_text::kChanging);
            break;
    }
    return std::nullopt;
}

void HexFiles::take_as_current(const fs::path& path) {
    file_ = {};
    buffer_.mnuPcBufferMemoryClear();
    show_name(path);
    session_.HexFilePath = text_of(path);
    session_.LoadedHexPath = session_.HexFilePath;
}

void HexFiles::show_name(const fs::path& path) {
    form_.Caption.set(fmt::format("{}  {}", text_of(path.filename()), session_.MainTitle));
}

// The whole file is read once: its scan and its load see the same text, and a file that can't be
// read changes nothing. An empty folder isn't saved.
Token HexFiles::open(const fs::path& path, std::string_view folder) {
    const auto text = read(path);
    if (!text) return Token::NG;
    take_as_current(path);
    if (!folder.empty()) settings_.save("OPEN_DIR0", folder);
    // A compiler's own output is trusted to suit the device selected.
    if (settings_.number("CCSC_option", 0) != 1) select_named_device(*text);
    const Token result = load(*text);
    if (!folder.empty())
        history_.add(folder, session_.DeviceName, form_.Combo_device.ListIndex.get());
    return result;
}

void HexFiles::select_named_device(std::string_view text) {
    const std::string name{device_named_in(text)};
    if (name.empty()) return;
    const auto& devices = form_.Combo_device.Items.get();
    const auto at = std::ranges::find(devices, name);
    if (at == devices.end()) {
        dialogs_.box({.title = std::string{hex_files_text::kBoxTitle},
                      .text = fmt::format(hex_files_text::kUnknownDevice, shown_name(name)),
                      .icon = BoxIcon::Information});
        return;
    }
    // The assignment must not run the handler, which is called once below.
    session_.DeviceEventLock = true;
    form_.Combo_device.select(static_cast<int>(at - devices.begin()));
    session_.DeviceEventLock = false;
    selection_.Combo_device_Click();
}

Token HexFiles::load(std::string_view text) {
    // The load shows the words as options. Words are computed from options only after a user's
    // choice: a code that no option has must be saved unchanged.
    sides_ = loader_.load(text);
    had_data_ = has_data_record(text);
    session_.ConfigFromFile = false;
    if (is_pic18_flash(session_.PgmType)) {
        loader_.show_pic18_id();
        session_.IdText = form_.Text_ID.Text.get();
    }
    views_.ShowProgramMemory();
    if (session_.EepBytes != 0) views_.show_eeprom();
    views_.ShowConfigSummary();
    if (session_.LoadResult != "OK") return Token::NG;
    file_ = ImageMark{session_};
    return Token::OK;
}

std::string_view device_named_in(std::string_view text) {
    std::string_view name;
    HexItems items{text};
    while (const auto item = items.next()) {
        const auto mark = item->find(";PIC");
        if (mark != std::string_view::npos) name = item->substr(mark + 1);
    }
    return name;
}

}  // namespace quillon

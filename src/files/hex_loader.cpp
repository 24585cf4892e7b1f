// SPDX-License-Identifier: MIT
// The messages of the two loaders, and the panel's update after a load.
#include "files/hex_loader.h"

#include <fmt/format.h>

#include <cstdint>
#include <span>
#include <string>

#include "app/text.h"
#include "files/hex_loader_texts.h"
#include "hex/hex_check.h"
#include "hex/id_words.h"
#include "hex/pic18_loader.h"
#include "hex/word_image_loader.h"
#include "image/fill.h"

namespace quillon {

namespace {

// Cut off, not rounded.
std::int64_t percent(std::int32_t part, std::int32_t whole) {
    return whole > 0 ? std::int64_t{100} * part / whole : 0;
}

// The last `digits` digits of an address that may be one below zero.
std::string last_digits(std::int32_t address, int digits) {
    const std::uint32_t mask = (1U << (4 * digits)) - 1;
    return hex(static_cast<std::uint32_t>(address) & mask, digits);
}

}  // namespace

HexAddresses hex_addresses(const MainForm& form, std::string_view DeviceName) {
    const bool full = form.HexUpperAddress.Checked.get() && has_full_addresses(DeviceName);
    return full ? HexAddresses::Full : HexAddresses::Folded;
}

HexSides HexLoader::load(std::string_view text) {
    messages_.ShowMessage(hex_loader_text::kLoading);
    session_.LoadResult.clear();
    const auto load = is_pic18_flash(session_.PgmType) ? load_pic18_text(text) : load_words(text);
    if (form_.HexFileCheck.Checked.get()) report_check(text, load);
    return load.sides;
}

HexAddresses HexLoader::addresses() const { return hex_addresses(form_, session_.DeviceName); }

void HexLoader::report_check(std::string_view text, const HexLoad& load) {
    const auto findings = describe(check_hex(text, session_, addresses()), load.sums_as_data);
    if (!findings.empty()) messages_.AddMessage(findings);
}

HexLoad HexLoader::load_words(std::string_view text) {
    auto load = load_word_image(text, form_.Combo_device.Text.get(), session_, addresses());
    if (!load.ok) {
        messages_.ShowMessage(hex_loader_text::kLoadFailed, hex_loader_text::kPerhapsPic18);
        session_.LoadResult = "NG";
        return load;
    }
    show_config(load);
    show_id_words();
    report(load, hex_loader_text::kLoaded);
    return load;
}

HexLoad HexLoader::load_pic18_text(std::string_view text) {
    auto load = load_pic18(text, session_);
    if (!load.ok) {
        messages_.ShowMessage(hex_loader_text::kLoadFailed);
        session_.LoadResult = "NG";
        return load;
    }
    show_config(load);
    show_pic18_id();
    report(load, pic18_report(load));
    return load;
}

// Words from a file are shown unchanged; otherwise the catalogue's masks apply.
void HexLoader::show_config(const HexLoad& load) {
    session_.ConfigFromFile = load.has_config;
    config_.ShowConfigWords();
    views_.ShowConfigSummary();
}

void HexLoader::show_id_words() {
    std::string words;
    for (std::size_t i = 0; i < 8; i += 2)
        words += fmt::format("{}{}", i == 0 ? "" : ":",
                             hex_bytes(std::span{session_.CfgIdMem}.subspan(i, 2)));
    about_.Label_ID_Word.Caption.set("OPEN:" + words);
}

void HexLoader::show_pic18_id() { form_.Text_ID.Text.set(pic18_id_digits(session_)); }

std::string HexLoader::pic18_report(const HexLoad& load) const {
    return fmt::format(hex_loader_text::kLoadedPic18, last_digits(session_.PgmWordsCat * 2 - 1, 5),
                       load.has_eeprom ? last_digits(session_.EepBytesCat - 1, 4) : "0000",
                       percent(session_.PgmWordsCat, session_.PgmWords),
                       load.has_eeprom ? percent(session_.EepBytesCat, session_.EepBytes) : 0);
}

void HexLoader::report(const HexLoad& load, std::string_view loaded) {
    if (load.skipped.empty())
        messages_.ShowMessage(loaded);
    else
        messages_.ShowMessage(fmt::format(hex_loader_text::kSkipped, load.skipped.list()));
    session_.LoadResult = "OK";
}

}  // namespace quillon

// SPDX-License-Identifier: MIT
#include "families/named_erase.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <span>

#include "link/exchange.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

namespace text {
constexpr std::string_view kErasingPgm = "Ｆｌａｓｈプログラムメモリ消去中.........";
// を消去に and 消去ました are the product's words.
constexpr std::string_view kErasePgmFailed = "プログラムメモリを消去に失敗しました。";
constexpr std::string_view kErasePgmDone = "プログラムメモリを消去ました。";
constexpr std::string_view kErasingEep = "ＥＥＰＲＯＭデータメモリ消去中.........";
constexpr std::string_view kErasingChip = "チップイレース(コードプロテクト解除)中.....";
constexpr std::string_view kGood = "成功。";
constexpr std::string_view kBad = "失敗。";
}  // namespace text

constexpr auto kEraseLimit = 3s;

constexpr std::array<std::string_view, 28> kErasable{
    "PIC12F629",  "PIC12F675",  "PIC16F630",  "PIC16F676",  "PIC16F627",  "PIC16F628", "PIC16F627A",
    "PIC16F628A", "PIC16F648A", "PIC16F818",  "PIC16F819",  "PIC16C84",   "PIC16F83",  "PIC16F84",
    "PIC16F84A",  "PIC16F870",  "PIC16F871",  "PIC16F872",  "PIC16F873",  "PIC16F874", "PIC16F876",
    "PIC16F877",  "PIC16F873A", "PIC16F874A", "PIC16F876A", "PIC16F877A", "PIC16F87",  "PIC16F88",
};
constexpr std::array<std::string_view, 1> kModule{"ZQ-LDR412"};
constexpr std::array<std::string_view, 1> kOlderModule{"LDR412"};
constexpr std::array<std::string_view, 4> kChipOnly{
    "PIC16F73",
    "PIC16F74",
    "PIC16F76",
    "PIC16F77",
};
constexpr std::array<std::string_view, 2> kChipOnly18{"PIC18F252", "PIC18F452"};

struct EraseCommand {
    std::string_view letters{};  // "" where none are known
    std::uint8_t mode = 0;       // 0 where none goes out
};

struct NamedErases {
    std::span<const std::string_view> devices;
    EraseCommand pgm{};
    EraseCommand eep{};
    EraseCommand chip{};
};

constexpr std::array kErases{
    NamedErases{kErasable, {"bd", 0x08}, {"bd", 0x0C}, {"bd", 0x0A}},
    NamedErases{kModule, {"bD", 0x08}, {"bD", 0x0C}, {"bD", 0x0A}},
    NamedErases{kOlderModule, {"bD", 0x02}, {"bD", 0x03}, {"bD", 0x0A}},
    NamedErases{.devices = kChipOnly, .chip = {"bd", 0x0A}},
    NamedErases{.devices = kChipOnly18, .chip = {"Xbd"}},
};

// PIC12F200 to PIC12F222 are names of no part; the list has them all the same.
constexpr std::array<std::string_view, 11> kNoEepErase{
    "PIC12F202", "PIC12F200", "PIC12F220", "PIC12F222", "PIC12F508", "PIC12F509",
    "PIC16F74",  "PIC16F76",  "PIC16F77",  "PIC18F252", "PIC18F452",
};

NamedErases erases_of(std::string_view device) {
    for (const auto& row : kErases)
        if (std::ranges::find(row.devices, device) != row.devices.end()) return row;
    return {};
}

}  // namespace

// From here on only this program knows the calibration that was read.
void NamedErase::note_calibration() {
    auto& session = context_.session;
    session.word_at_risk = session.word_known;
    session.bandgap_at_risk = session.bandgap_known;
}

bool NamedErase::erase(std::string_view letters, std::uint8_t mode) {
    Exchange wire{{.power = power_letter(context_.session.PowerMode)},
                  context_.host,
                  context_.port,
                  context_.messages};
    wire.begin();
    wire.send(letters);
    if (mode != 0) wire.send_byte(mode);
    return wire.wait(1, kEraseLimit) && wire.take().front() == kEndCode;
}

Token NamedErase::Pgm_Erase() {
    context_.messages.ShowMessage(text::kErasingPgm);
    const auto [letters, mode] = erases_of(context_.session.DeviceName).pgm;
    note_calibration();
    const bool done = erase(letters, mode);
    context_.messages.ShowMessage(done ? text::kErasePgmDone : text::kErasePgmFailed);
    return done ? Token::OK : Token::ER;
}

Token NamedErase::Eep_Erase() {
    const auto& device = context_.session.DeviceName;
    if (std::ranges::find(kNoEepErase, device) != kNoEepErase.end()) return Token::Absent;
    context_.messages.ShowMessage(text::kErasingEep);
    const auto [letters, mode] = erases_of(device).eep;
    const bool done = erase(letters, mode);
    context_.messages.ShowMessage(done ? text::kGood : text::kBad);
    return done ? Token::OK : Token::ER;
}

Token NamedErase::Chip_Erase() {
    if (context_.selection.Mcu_Selected_Check() == Token::NG) return Token::NG;
    if (context_.link.Writer_Check() == Token::NG) return Token::NG;
    context_.link.Writer_Find();
    if (!context_.session.WriterFound) return Token::NG;
    context_.messages.ShowMessage(text::kErasingChip);
    const auto [letters, mode] = erases_of(context_.session.DeviceName).chip;
    note_calibration();
    const bool done = erase(letters, mode);
    context_.messages.ShowMessage(done ? text::kGood : text::kBad);
    return done ? Token::OK : Token::ER;
}

bool NamedErase::knows_Pgm_Erase() const {
    return !erases_of(context_.session.DeviceName).pgm.letters.empty();
}

bool NamedErase::knows_Eep_Erase() const {
    return !erases_of(context_.session.DeviceName).eep.letters.empty();
}

bool NamedErase::knows_Chip_Erase() const {
    return !erases_of(context_.session.DeviceName).chip.letters.empty();
}

}  // namespace quillon

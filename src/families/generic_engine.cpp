// SPDX-License-Identifier: MIT
#include "families/generic_engine.h"

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
// These know a chip erase only.
constexpr std::array<std::string_view, 4> kChipErasableOnly{
    "PIC16F73",
    "PIC16F74",
    "PIC16F76",
    "PIC16F77",
};
constexpr std::array<std::string_view, 2> kErasable18{"PIC18F252", "PIC18F452"};

struct EraseCommand {
    std::string_view letters;  // "" where none are known
    std::uint8_t mode = 0;     // 0 where none goes out
};

bool holds(std::span<const std::string_view> names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

EraseCommand program_erase(std::string_view device) {
    if (holds(kErasable, device)) return {"bd", 0x08};
    if (device == "ZQ-LDR412") return {"bD", 0x08};
    if (device == "LDR412") return {"bD", 0x02};
    return {};
}

EraseCommand chip_erase(std::string_view device) {
    if (holds(kErasable, device) || holds(kChipErasableOnly, device)) return {"bd", 0x0A};
    if (device == "ZQ-LDR412" || device == "LDR412") return {"bD", 0x0A};
    if (holds(kErasable18, device)) return {"Xbd"};
    return {};
}

}  // namespace

bool GenericEngine::erase(std::string_view letters, std::uint8_t mode) {
    Exchange wire{{.power = power_letter(context_.session.PowerMode)},
                  context_.host,
                  context_.port,
                  context_.messages};
    wire.begin();
    wire.send(letters);
    if (mode != 0) wire.send_byte(mode);
    return wire.wait(1, kEraseLimit) && wire.take().front() == kEndCode;
}

Token GenericEngine::Pgm_Erase() {
    context_.messages.ShowMessage(text::kErasingPgm);
    const auto command = program_erase(context_.session.DeviceName);
    const bool done = erase(command.letters, command.mode);
    context_.messages.ShowMessage(done ? text::kErasePgmDone : text::kErasePgmFailed);
    return done ? Token::OK : Token::ER;
}

Token GenericEngine::Chip_Erase() {
    if (context_.selection.Mcu_Selected_Check() == Token::NG) return Token::NG;
    if (context_.link.Writer_Check() == Token::NG) return Token::NG;
    context_.link.Writer_Find();
    if (!context_.session.WriterFound) return Token::NG;
    context_.messages.ShowMessage(text::kErasingChip);
    const auto command = chip_erase(context_.session.DeviceName);
    const bool done = erase(command.letters, command.mode);
    context_.messages.ShowMessage(done ? text::kGood : text::kBad);
    return done ? Token::OK : Token::ER;
}

}  // namespace quillon

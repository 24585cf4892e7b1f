// SPDX-License-Identifier: MIT
// Writes and verifies of the 14-bit flash families.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <span>
#include <string>

#include "app/text.h"
#include "families/config_area.h"
#include "families/flash14.h"
#include "families/flash14_texts.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;
namespace text = flash14_text;

constexpr auto kWriteLimit = 10s;
// The words between ID and configuration are never written.
constexpr std::array<std::size_t, 3> kUntouchedWords{8, 10, 12};
constexpr std::uint8_t kDontWrite = 0x80;
// Beyond so many mismatches the list stops: the part is not what it should be.
constexpr int kMostMismatches = 100;

struct Mismatch {
    std::size_t address;
    std::uint16_t expected;
    std::uint16_t actual;
};

// The list of mismatches for the program view, empty where there is none.
template <typename Compare>
std::string mismatch_list(std::size_t words, Compare compare) {
    std::string list;
    int count = 0;
    for (std::size_t w = 0; w < words; ++w) {
        const std::optional<Mismatch> found = compare(w);
        if (!found) continue;
        list += fmt::format(text::kMismatchLine, found->address, found->expected, found->actual);
        if (++count > kMostMismatches) return list.append(text::kMoreMismatches);
    }
    return list;
}

// The device's ID digits as Text_ID shows them.
std::string id_digits(std::span<const std::uint8_t> config) {
    std::string digits;
    for (std::size_t i = 1; i < config_area::kIdEnd; i += 2) digits += hex(config[i] & 0x0FU, 1);
    return digits;
}

// Upper digits of the ID words hold nothing; the words behind them are the device's own.
bool same_config(std::span<const std::uint8_t> device, std::span<const std::uint8_t> image) {
    for (std::size_t i = 1; i < config_area::kIdEnd; i += 2)
        if ((device[i] & 0x0F) != (image[i] & 0x0F)) return false;
    return device[config_area::kConfig1] == image[config_area::kConfig1] &&
           device[config_area::kConfig1 + 1] == image[config_area::kConfig1 + 1];
}

}  // namespace

Token Flash14::Write_Pgm() {
    wire_.begin();
    wire_.send("w");
    wire_.send(record_.write_pgm);
    wire_.send_count(session_.PgmWords);
    const auto image =
        std::span{session_.PgmMem}.first(2 * static_cast<std::size_t>(session_.PgmWords));
    const auto written = wire_.write_stream(image, kWriteLimit, kEndCode);
    switch (written.end) {
        case WriteEnd::Done:
            messages_.ShowMessage(text::kWritePgmDone);
            return Token::OK;
        case WriteEnd::NoReady:
            // The wording counts from the word before the one that was answered last.
            return fail(text::kWritePgmFailed,
                        fmt::format(text::kWritePgmTimeoutAt,
                                    static_cast<std::uint16_t>(written.index / 2 - 2)));
        case WriteEnd::Interrupted:
            return fail(text::kWritePgmInterrupted);
        case WriteEnd::NoReply:
            return fail(text::kWritePgmNoReply);
        case WriteEnd::NoEndCode:
            return fail(text::kWritePgmNoEndCode);
    }
    return Token::NG;
}

Token Flash14::Write_Eep() {
    if (session_.EepBytes == 0) {
        messages_.ShowMessage(text::kNoEepToWrite);
        return Token::Absent;
    }
    wire_.begin();
    wire_.send("w");
    wire_.send(record_.write_eep);
    wire_.send_count(session_.EepBytes);
    const auto image =
        std::span{session_.EepMem}.first(2 * static_cast<std::size_t>(session_.EepBytes));
    const auto written = wire_.write_stream(image, kNoLimit, kItemFailed);
    if (written.end == WriteEnd::Done) {
        messages_.ShowMessage(text::kWriteEepDone);
        return Token::OK;
    }
    if (written.end != WriteEnd::Interrupted) return fail(text::kWriteEepNoEndCode);
    const auto i = written.index;
    const auto hex_at = [](std::span<const std::uint8_t> bytes, std::size_t at) {
        return at + 1 < bytes.size() ? hex_bytes(bytes.subspan(at, 2)) : std::string{"????"};
    };
    return fail(text::kWriteEepFailed,
                fmt::format(text::kWriteEepDetail, static_cast<std::ptrdiff_t>(i / 2) - 1,
                            hex_at(image, i - 2), hex_at(written.reply, 1)));
}

Token Flash14::Write_Cfg() {
    wire_.begin();
    wire_.send("w");
    wire_.send(record_.write_cfg);
    wire_.send_count(config_area::kWords);
    std::array<std::uint8_t, config_area::kBytes> image{};
    std::copy_n(session_.CfgIdMem.begin(), image.size(), image.begin());
    for (const auto i : kUntouchedWords) image[i] |= kDontWrite;
    const auto written = wire_.write_config(image);
    for (const auto i : kUntouchedWords) session_.CfgIdMem[i] &= 0x3F;
    if (written.end == WriteEnd::Done) {
        messages_.ShowMessage(text::kWriteCfgDone);
        return Token::OK;
    }
    const auto& reply = written.reply;
    const auto read = reply.size() > 1 ? word_high_first(reply[0], reply[1]) : reply.front();
    return fail(
        text::kWriteCfgFailed,
        fmt::format(text::kWriteCfgDetail, static_cast<int>(written.index / 2) - 1, hex(read, 4)));
}

Token Flash14::Verify_Pgm() {
    const auto words = static_cast<std::size_t>(session_.PgmWords);
    const auto device = read_area('p', session_.PgmWords, kNoLimit, Exchange::Bar::Shown);
    const std::string list = mismatch_list(words, [&](std::size_t w) -> std::optional<Mismatch> {
        const auto expected = word_high_first(session_.PgmMem[2 * w], session_.PgmMem[2 * w + 1]);
        const auto actual = word_high_first(device[2 * w], device[2 * w + 1]);
        if (expected == actual) return std::nullopt;
        return Mismatch{w, expected, actual};
    });
    if (!list.empty()) {
        form_.RichTxtPgmMem.Text.set(form_.RichTxtPgmMem.Text.get() + list);
        return fail(text::kVerifyPgmFailed);
    }
    if (device[2 * words] != kEndCode) return fail(text::kVerifyPgmNoEndCode);
    return Token::OK;
}

Token Flash14::Verify_Eep() {
    if (session_.EepBytes == 0) return Token::Absent;
    const auto cells = static_cast<std::size_t>(session_.EepBytes);
    const auto device = read_area('d', session_.EepBytes, kNoLimit, Exchange::Bar::Shown);
    // A cell is the low byte; what the board sends above it is no content.
    const std::string list = mismatch_list(cells, [&](std::size_t c) -> std::optional<Mismatch> {
        const std::uint8_t expected = session_.EepMem[2 * c + 1];
        const std::uint8_t actual = device[2 * c + 1];
        if (expected == actual) return std::nullopt;
        return Mismatch{c, expected, actual};
    });
    if (!list.empty()) {
        form_.RichTxtPgmMem.Text.set(form_.RichTxtPgmMem.Text.get() + list);
        return fail(text::kVerifyEepFailed);
    }
    if (device[2 * cells] != kEndCode) return fail(text::kVerifyEepNoEndCode);
    return Token::OK;
}

ConfigVerdict Flash14::Verify_Cfg() {
    const auto device = read_config_area(kNoLimit);
    judge_protection(
        word_high_first(device[config_area::kConfig1], device[config_area::kConfig1 + 1]),
        text::kProtected);
    if (device[config_area::kBytes] != kEndCode) {
        messages_.ShowMessage(text::kVerifyCfgNoEndCode);
        return {.result = Token::NG};
    }
    if (same_config(device, session_.CfgIdMem))
        return {.result = Token::OK, .config_text = "OK", .id_text = "OK"};
    const ConfigVerdict verdict{
        .result = Token::NG,
        .config_text = hex_bytes(std::span{device}.subspan(config_area::kConfig1, 2)),
        .id_text = id_digits(device),
    };
    messages_.ShowMessage(std::string{text::kVerifyCfgFailed} +
                          fmt::format(text::kVerifyCfgData, verdict.config_text, verdict.id_text));
    return verdict;
}

}  // namespace quillon

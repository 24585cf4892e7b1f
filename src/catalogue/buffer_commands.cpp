// SPDX-License-Identifier: MIT
#include "catalogue/buffer_commands.h"

#include "catalogue/catalogue_texts.h"
#include "image/fill.h"
#include "parts/device_traits.h"

namespace quillon {

namespace {

constexpr std::uint32_t kOnes14 = 0x3FFF;

// Whether the words that the tabs show are the words that would be written.
bool words_are_in_image(const Session& session) {
    for (std::size_t n = 1; n <= kConfigWords; ++n) {
        const std::uint32_t stored =
            (session.CfgIdMem[12 + 2 * n] & 0x3FU) * 256U + session.CfgIdMem[13 + 2 * n];
        if (session.ConfigPresent[n] && stored != session.ConfigWord[n]) return false;
    }
    return true;
}

}  // namespace

bool BufferCommands::begin() {
    form_.CmbInit.Visible.set(false);
    form_.TxtInit.Visible.set(false);
    return device_check_.Mcu_Selected_Check() == Token::OK;
}

void BufferCommands::mnuPcBufferMemoryClear() {
    if (!begin()) return;
    FillProgramOnes(session_);
    views_.ShowProgramMemory();
    FillIdOnes(session_);
    views_.ShowConfigSummary();
    form_.SSTab_Config.Tab.set(0);

    const bool pic18 = is_pic18(session_.PgmType);
    if (!pic18)
        for (std::size_t n = 1; n <= kConfigWords; ++n) session_.ConfigWord[n] = kOnes14;
    config_.ShowConfigWords();
    if (session_.EepBytes != 0) {
        FillEepromOnes(session_);
        pic18 ? views_.ShowEepromBytes() : views_.ShowEepromMemory();
    }
    if (pic18)
        show_id("FFFFFFFF", 0xFF);
    else
        form_.Text_ID.Text.set(session_.IdText = "FFFF");
    show_four_words("3FFF");
}

// Types that begin "18" but not "18F" are treated like the 12-bit and 14-bit ones here, but not in
// the clear.
void BufferCommands::mnuPcBufferMemory_0() {
    // Only the low nibble of an ID byte is the digit.
    constexpr std::uint8_t kZeroId = 0x0F;
    if (!begin()) return;
    FillProgramZeros(session_);
    views_.ShowProgramMemory();
    FillIdZeros(session_);
    views_.ShowConfigSummary();
    form_.SSTab_Config.Tab.set(0);

    const bool pic18 = is_pic18_flash(session_.PgmType);
    if (pic18) session_.ConfigWord[1] = 0;
    config_.ShowConfigWords();
    if (session_.EepBytes != 0) {
        FillEepromZeros(session_);
        pic18 ? views_.ShowEepromBytes() : views_.ShowEepromMemory();
    }
    if (pic18)
        show_id("00000000", kZeroId);
    else
        form_.Text_ID.Text.set(session_.IdText = "0000");
    show_four_words("0000");
    if (!pic18 && !words_are_in_image(session_)) messages_.AddMessage(catalogue_text::kZerosKept);
}

// PIC18: the ID's text, its eight bytes, and no device identity.
void BufferCommands::show_id(const std::string& digits, std::uint8_t byte18) {
    session_.IdText = digits;
    form_.Text_ID.Text.set(digits);
    session_.IdBytes18.fill(byte18);
    form_.Label_DEV_id.Caption.set("--");
    form_.Label_DEV_rev.Caption.set("--");
}

void BufferCommands::show_four_words(const std::string& digits) {
    if (!has_four_word_id(session_.DeviceName)) return;
    for (auto* id : {&form_.Text_ID1, &form_.Text_ID2, &form_.Text_ID3, &form_.Text_ID4})
        id->Text.set(digits);
}

}  // namespace quillon

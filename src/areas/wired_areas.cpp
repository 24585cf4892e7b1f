// SPDX-License-Identifier: MIT
#include "areas/wired_areas.h"

namespace quillon {

WiredAreas::WiredAreas(RunContext& context, char power)
    : context_{context},
      session_{context.session},
      messages_{context.messages},
      wire_{{.power = power}, context.host, context.port, context.messages},
      calibration_{context.session, context.form, context.messages} {}

Token WiredAreas::report(Token token, std::string_view message, std::string_view extra) {
    if (!message.empty()) messages_.ShowMessage(message, extra);
    return token;
}

Token WiredAreas::list_mismatches(const std::string& list, std::string_view message) {
    auto& view = context_.form.RichTxtPgmMem.Text;
    view.set(view.get() + list);
    return report(Token::NG, message);
}

void WiredAreas::judge_protection(std::uint16_t word, std::string_view message) {
    const bool is_protected = (word & session_.CpMask) != session_.CpMask;
    session_.CodeProtect = {.pgm = is_protected, .eep = is_protected};
    if (is_protected && !message.empty()) messages_.ShowMessage(message);
}

WiredAreas::Bytes WiredAreas::read_words(std::string_view letters, std::int32_t count,
                                         Limit limit) {
    wire_.begin();
    wire_.send(letters);
    wire_.send_number(count);
    const auto total = 2 * static_cast<std::size_t>(count) + 1;
    return wire_.read_stream(total, limit) ? wire_.take() : Bytes{};
}

std::span<const std::uint8_t> WiredAreas::program_image() const {
    return std::span{session_.PgmMem}.first(2 * static_cast<std::size_t>(session_.PgmWords));
}

// The part has no calibration: a former run's isn't shown.
Token WiredAreas::Take_Calibration() {
    context_.form.Lbl_Calib_ReadWrite_Data.Caption.set("");
    return Token::OK;
}

}  // namespace quillon

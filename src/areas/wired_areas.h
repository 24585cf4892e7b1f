// SPDX-License-Identifier: MIT
// What the area routines of the 12-bit and the 14-bit parts share.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "areas/areas.h"
#include "areas/calibration_word.h"
#include "areas/context.h"
#include "link/exchange.h"

namespace quillon {

class WiredAreas : public Areas {
  public:
    Token Take_Calibration() override;

  protected:
    using Bytes = std::vector<std::uint8_t>;

    WiredAreas(RunContext& context, char power);

    // Shows the message, unless it is empty.
    Token report(Token token, std::string_view message, std::string_view extra = "");
    // Appends the list to the program view's text, from which the next verify or view removes it.
    Token list_mismatches(const std::string& list, std::string_view message);
    // Sets CodeProtect from configuration word 1, with a message where it is protected.
    void judge_protection(std::uint16_t word, std::string_view message);
    // Letters, a count, and a stream with the end code behind it; empty where the limit has passed.
    Bytes read_words(std::string_view letters, std::int32_t count, Limit limit);
    std::span<const std::uint8_t> program_image() const;

    RunContext& context_;
    Session& session_;
    Messages& messages_;
    Exchange wire_;
    CalibrationWord calibration_;
};

}  // namespace quillon

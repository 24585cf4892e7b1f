// SPDX-License-Identifier: MIT
// The area routines of the 14-bit parts, driven by a record.
//
// Waits for program memory have no limit, since the board answers when the whole part is done.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "areas/areas.h"
#include "areas/areas14_record.h"
#include "areas/context.h"
#include "link/exchange.h"
#include "link/words.h"

namespace quillon {

class Areas14 : public Areas {
  public:
    Areas14(RunContext& context, const Areas14Record& record);

    Token Blank_Cfg() override;
    Token Blank_Pgm() override;
    Token Blank_Eep() override;
    Token Write_Cfg() override;
    Token Write_Pgm() override;
    Token Write_Eep() override;
    SocketVerdict Socket_Check() override;
    Token Read_Cfg() override;
    Token Read_Pgm() override;
    Token Read_Eep() override;
    Token Verify_Cfg() override;
    Token Verify_Pgm() override;
    Token Verify_Eep() override;
    Token Chip_Erase() override;
    Token Pgm_Erase() override;
    Token Eep_Erase() override;
    bool read_was_blank() const override;

  private:
    using Bytes = std::vector<std::uint8_t>;

    Token erase(std::uint8_t mode);
    void start_read(char area, std::int32_t count);
    // Words with the end code behind them; empty where the limit has passed.
    Bytes read_area(char area, std::int32_t count, Limit limit);
    Bytes read_config_area(std::uint8_t words, Limit limit);
    // Sets CodeProtect from configuration word 1, with a message where it is protected.
    void judge_protection(std::span<const std::uint8_t> area, std::string_view message);
    AndWord config_sum(std::span<const std::uint8_t> area) const;
    bool is_blank_config(std::uint16_t value) const;
    void show_identity(std::span<const std::uint8_t> area);
    Token report(Token token, std::string_view message, std::string_view extra = "");
    Token list_mismatches(const std::string& list, std::string_view message);

    RunContext& context_;
    Session& session_;
    Messages& messages_;
    const Areas14Record& record_;
    const Areas14Texts& texts_;
    Exchange wire_;
    AndWord pgm_and_;
    AndWord eep_and_;
    AndWord cfg_and_;
};

}  // namespace quillon

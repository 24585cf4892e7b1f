// SPDX-License-Identifier: MIT
// The area routines of the 14-bit parts, driven by a record.
//
// Waits for program memory have no limit, since the board answers when the whole part is done.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "areas/areas14_record.h"
#include "areas/context.h"
#include "areas/wired_areas.h"
#include "link/words.h"

namespace quillon {

class Areas14 : public WiredAreas {
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
    Token Verify_Cfg_Id() override;
    Token Verify_Pgm() override;
    Token Verify_Eep() override;
    Token Chip_Erase() override;
    Token Pgm_Erase() override;
    Token Eep_Erase() override;
    Token Cfg_Patch_Read() override;
    Token Calibration_Entry() override;
    Token Calibration_Check() override;
    Token Word_Read() override;
    Token Word_Write() override;
    Token Word_Restore() override;
    Token Cfg_Read_12F6() override;
    Token Cfg_Write_12F6() override;
    Token Take_Calibration() override;
    Token Show_Kept_Calibration() override;
    Token Take_Erase_Calibration() override;
    Token Show_Calibration() override;
    bool read_was_blank() const override;
    std::string verify_note() const override;
    std::string calibration_warning() const override;

  private:
    enum class IdWords : std::uint8_t { Compared, LeftOut };

    Token erase(std::uint8_t mode);
    Bytes read_area(char area, std::int32_t count, Limit limit);
    // ID words and configuration with the end code behind them; empty where the limit has passed.
    // An area of several blocks has a limit of its own.
    Bytes read_config_area(std::uint8_t words, Limit limit, ConfigAck ack = ConfigAck::BehindData);
    std::string_view write_pgm_letters() const;
    Limit config_limit() const;
    bool is_erased_word() const;  // the calibration word that was read
    Token blank_verdict(bool is_blank) const {
        return is_blank ? record_.words.blank : record_.words.used;
    }
    bool has_bandgap() const { return record_.osccal == Osccal14::WordAndBandgap; }
    // What a blank check and a protection test see: the band gap isn't content.
    std::uint16_t judged_config(std::span<const std::uint8_t> area) const;
    AndWord config_sum(std::span<const std::uint8_t> area) const;
    bool is_blank_config(std::uint16_t value) const;
    void show_identity(std::span<const std::uint8_t> area);
    Token verify_config(IdWords id_words);
    bool same_config(std::span<const std::uint8_t> device, IdWords id_words) const;

    const Areas14Record& record_;
    const Areas14Texts& texts_;
    AndWord pgm_and_;
    AndWord eep_and_;
    AndWord cfg_and_;
    std::uint16_t last_word_ = 0;      // of the last program verify
    std::uint8_t device_bandgap_ = 0;  // of the last config verify
};

}  // namespace quillon

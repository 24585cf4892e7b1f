// SPDX-License-Identifier: MIT
// The wire sequences of the 14-bit flash families. The template is PIC16F877; a sibling is a record
// of what sets it apart.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "families/flow14.h"
#include "link/exchange.h"
#include "link/words.h"

namespace quillon {

// The number that the socket check expects: the identity word shifted right by 5.
struct DeviceId {
    std::string_view name;
    std::uint16_t id = 0;
};

// Mode bytes behind the erase letters.
struct EraseModes {
    std::uint8_t chip = 1;
    std::uint8_t pgm = 1;
    std::uint8_t eep = 3;
};

// The steps of Erase_All.
enum class EraseSteps : std::uint8_t {
    ChipEep,    // chip erase takes program memory with the protection, then EEPROM
    CfgPgmEep,  // configuration with the protection, program memory, EEPROM
};

// The defaults are the template.
struct Flash14Record {
    std::span<const DeviceId> devices;
    std::string_view write_pgm = "e8";  // letters after "w"
    std::string_view write_eep = "ed";
    std::string_view write_cfg = "ec";
    char algorithm = 's';  // second letter of every read and blank check
    std::string_view erase = "bd";
    EraseModes mode{};
    EraseSteps erase_steps = EraseSteps::ChipEep;
};

// True for a record that names its devices once each, with letters in every place.
constexpr bool is_sound(const Flash14Record& record) {
    if (record.devices.empty() || record.write_pgm.size() != 2 || record.write_eep.size() != 2 ||
        record.write_cfg.size() != 2 || record.erase.size() != 2)
        return false;
    for (std::size_t i = 0; i < record.devices.size(); ++i) {
        // Zero is what an empty socket reads.
        if (record.devices[i].name.empty() || record.devices[i].id == 0) return false;
        for (std::size_t j = 0; j < i; ++j)
            if (record.devices[j].name == record.devices[i].name) return false;
    }
    return true;
}

class Flash14 : public Flow14 {
  public:
    Flash14(RunContext& context, const Flash14Record& record)
        : Flow14{context},
          record_{record},
          wire_{context.session, context.host, context.port, context.messages} {}

  protected:
    Token Blank_Pgm() override;
    Token Blank_Eep() override;
    Token Blank_Cfg() override;
    Token Write_Pgm() override;
    Token Write_Eep() override;
    Token Write_Cfg() override;
    Token Socket_Check() override;
    Token Read_Pgm() override;
    Token Read_Eep() override;
    Token Read_Cfg() override;
    Token Verify_Pgm() override;
    Token Verify_Eep() override;
    ConfigVerdict Verify_Cfg() override;
    Token Erase_All() override;
    Token Eep_Erase() override;
    bool read_was_blank() const override;

    Token Chip_Erase();
    Token Pgm_Erase();

  private:
    struct EraseStep;

    static std::span<const EraseStep> steps_of(EraseSteps steps);
    Token erase(std::uint8_t mode);
    void start_read(char area, std::int32_t count);
    std::vector<std::uint8_t> read_area(char area, std::int32_t count, Limit limit,
                                        Exchange::Bar bar);
    std::vector<std::uint8_t> read_config_area(Limit limit);
    // Sets CodeProtect from configuration word 1, with a message where it is protected.
    void judge_protection(std::uint16_t word, std::string_view message);
    bool is_blank_config(std::uint16_t value) const;
    Token fail(std::string_view message, std::string_view extra = "");
    Token judge_identity(std::uint16_t id);

    const Flash14Record& record_;
    Exchange wire_;
    AndWord pgm_and_;
    AndWord eep_and_;
    AndWord cfg_and_;
};

}  // namespace quillon

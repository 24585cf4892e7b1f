// SPDX-License-Identifier: MIT
// The whole operations of the 14-bit families, over area routines that a template supplies.
//
// Which area routine runs when, what a verdict stops and what it doesn't, and every message between
// them. Nothing here touches the wire.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "app/token.h"
#include "families/context.h"
#include "families/family.h"

namespace quillon {

// What a configuration verify found in the device: both texts are "OK" where all agreed, and empty
// where nothing could be read.
struct ConfigVerdict {
    Token result = Token::None;
    std::string config_text{};
    std::string id_text{};
};

class Flow14 : public Family {
  public:
    explicit Flow14(RunContext& context)
        : context_{context},
          session_{context.session},
          form_{context.form},
          host_{context.host},
          messages_{context.messages} {}

    Outcome Blank_All() override;
    Outcome Program_All() override;
    Outcome Read_All() override;
    Outcome Verify_All() override;
    Outcome Pgm_Reload() override;
    Outcome Eep_Reload() override;

  protected:
    // The area routines. Those of the configuration set the session's CodeProtect.
    virtual Token Blank_Pgm() = 0;
    virtual Token Blank_Eep() = 0;
    virtual Token Blank_Cfg() = 0;
    virtual Token Write_Pgm() = 0;
    virtual Token Write_Eep() = 0;
    virtual Token Write_Cfg() = 0;
    virtual Token Socket_Check() = 0;
    virtual Token Read_Pgm() = 0;
    virtual Token Read_Eep() = 0;
    virtual Token Read_Cfg() = 0;
    virtual Token Verify_Pgm() = 0;
    virtual Token Verify_Eep() = 0;
    virtual ConfigVerdict Verify_Cfg() = 0;
    virtual Token Erase_All() = 0;
    virtual Token Eep_Erase() = 0;
    // True when all that Read_Pgm, Read_Eep and Read_Cfg have just read was the blank value.
    virtual bool read_was_blank() const = 0;

    // A status line, shown before the step that it announces.
    void announce(std::string_view status);

    RunContext& context_;
    Session& session_;
    MainForm& form_;
    Host& host_;
    Messages& messages_;

  private:
    enum class Go { On, Stop };

    struct ReloadStep;

    Go check_blank();
    Go ask_overwrite();
    Go write_pgm_and_eep();
    Go write_cfg();
    void fail_with_box(std::string_view title, std::string_view message);
    Outcome conclude(Host::Time started);
    void show_areas_box(const AreaTokens& tokens);
    void report_not_blank(const AreaTokens& tokens);
    Token read_areas();
    void refresh_after_read();
    Outcome report_verify(const AreaTokens& tokens, const ConfigVerdict& config);
    Outcome reload(std::span<const ReloadStep> steps, std::string_view done);
    void set_results(const AreaTokens& tokens);
};

}  // namespace quillon

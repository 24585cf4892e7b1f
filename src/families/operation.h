// SPDX-License-Identifier: MIT
// Whole operations over area routines: check, blank test, question, erase, write stage, conclusion.
//
// The skeleton is one for all cores. What differs between families is a table of steps, a text, or
// the area routines behind it. Nothing here touches the wire.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "areas/areas.h"
#include "areas/context.h"
#include "families/family.h"
#include "families/operation_texts.h"
#include "families/steps14.h"

namespace quillon {

// How a blank check reports an area that isn't blank.
enum class BlankReport : std::uint8_t {
    EveryArea,   // a box; an area that the device hasn't is reported as not erased
    OwnAreas,    // a box without such an area
    StatusOnly,  // no box
};

// The defaults are the 14-bit template's.
struct OperationRecord {
    std::span<const Step> before{};  // between the socket's check and the blank check
    std::span<const Step> erase = steps14::kChipEep;  // of a whole run; none: one-time parts
    std::span<const Step> write = steps14::kWriteStage;
    // One area at a time
    std::span<const Step> erase_chip{};  // none: `erase`
    std::span<const Step> erase_pgm = steps14::kErasePgm;
    std::span<const Step> erase_eep = steps14::kEraseEepAlone;
    std::span<const Step> reload_pgm = steps14::kReloadPgm;
    std::span<const Step> reload_eep = steps14::kReloadEep;

    BlankReport blank_report = BlankReport::EveryArea;
    bool blank_config_first = false;
    bool pauses_without_check = false;  // before the erase, where the blank check is skipped too
    bool pauses_after_verify = true;
    bool counts_check_time = false;  // the seconds shown begin before the board's check
    // A run for the program side has no result for its configuration, unless that failed.
    bool hides_config_of_side = false;
    const OperationTexts* texts = &kOperationTexts;
};

class Operation : public Family {
  public:
    Operation(RunContext& context, std::unique_ptr<Areas> areas, const OperationRecord& record);

    Outcome Blank_All() override;
    Outcome Program_All() override;
    Outcome Read_All() override;
    Outcome Verify_All() override;
    Outcome Pgm_Reload() override;
    Outcome Eep_Reload() override;
    Outcome Erase_All() override;
    Outcome Pgm_Erase() override;
    Outcome Eep_Erase() override;
    Outcome Read_Pgm() override;
    Outcome Read_Eep() override;
    Outcome Word_Read() override;
    Outcome Word_Write() override;

  private:
    enum class Go { On, Stop, Cancel };

    // A status line, shown before the step that it announces.
    void announce(std::string_view status);
    void set_results(const AreaTokens& tokens);
    // Success where the right part is in the socket, or one that the user goes on with.
    Outcome check_socket();

    AreaTokens blank_areas();
    Go check_blank();
    Go ask_overwrite();
    bool erase_all();
    Outcome conclude(Host::Time started);
    void show_areas_box(const AreaTokens& tokens);
    void report_not_blank(const AreaTokens& tokens);

    AreaTokens read_areas();
    void refresh_after_read();
    bool shows_protection() const;
    Outcome verify_memories(AreaTokens tokens);
    Outcome report_verify(const AreaTokens& tokens);
    std::string config_line(Token token) const;
    Outcome reload(std::span<const Step> steps, std::string_view done, std::string_view failed);
    Outcome erase(std::span<const Step> steps);

    RunContext& context_;
    Session& session_;
    MainForm& form_;
    Host& host_;
    Messages& messages_;
    std::unique_ptr<Areas> areas_;
    const OperationRecord& record_;
    const OperationTexts& texts_;
};

}  // namespace quillon

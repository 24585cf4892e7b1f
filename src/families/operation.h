// SPDX-License-Identifier: MIT
// Whole operations over area routines: check, blank test, question, erase, write stage, conclusion.
//
// The skeleton is one for all cores. What differs between families is a table of steps, a text, or
// the area routines behind it. Nothing here touches the wire.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "areas/areas.h"
#include "areas/context.h"
#include "families/family.h"
#include "families/operation_texts.h"
#include "families/steps14.h"

namespace quillon {

// The defaults are the 14-bit template's.
struct OperationRecord {
    std::span<const Step> erase = steps14::kChipEep;
    std::span<const Step> write = steps14::kWriteStage;
    std::span<const Step> reload_pgm = steps14::kReloadPgm;
    std::span<const Step> reload_eep = steps14::kReloadEep;
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

  private:
    enum class Go { On, Stop, Cancel };

    // A status line, shown before the step that it announces.
    void announce(std::string_view status);
    void set_results(const AreaTokens& tokens);
    // Success where the right part is in the socket, or one that the user goes on with.
    Outcome check_socket();

    Go check_blank();
    Go ask_overwrite();
    bool erase_all();
    Outcome conclude(Host::Time started);
    void show_areas_box(const AreaTokens& tokens);
    void report_not_blank(const AreaTokens& tokens);

    AreaTokens read_areas();
    void refresh_after_read();
    Outcome verify_memories(AreaTokens tokens);
    Outcome report_verify(const AreaTokens& tokens);
    Outcome reload(std::span<const Step> steps, std::string_view done);

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

// SPDX-License-Identifier: MIT
// The steps of the 14-bit parts, in the order in which they run.
#pragma once

#include <array>

#include "families/step.h"
#include "families/step14_texts.h"

namespace quillon::steps14 {

using namespace std::chrono_literals;
namespace text = step14_text;

inline constexpr Step kEraseEep{
    .status = text::kErasingEep,
    .pause = 100ms,
    .routine = &Areas::Eep_Erase,
    .on_bad = OnBad::Tell,
    .only = Only::WithEeprom,
    .failure = text::kEraseEepFailed,
};

// The chip erase clears program memory together with the protection.
inline constexpr std::array kChipEep{
    Step{.status = text::kErasing},
    Step{
        .status = text::kErasingChip,
        .pause = 100ms,
        .routine = &Areas::Chip_Erase,
        .on_bad = OnBad::Tell,
        .failure = text::kEraseChipFailed,
    },
    kEraseEep,
};

// The chip erase clears the configuration together with the protection. Program memory has an erase
// of its own.
inline constexpr std::array kCfgPgmEep{
    Step{
        .status = text::kErasingCfg,
        .routine = &Areas::Chip_Erase,
        .on_bad = OnBad::Tell,
        .failure = text::kEraseCfgFailed,
    },
    Step{
        .status = text::kErasingPgm,
        .pause = 100ms,
        .routine = &Areas::Pgm_Erase,
        .on_bad = OnBad::Tell,
        .failure = text::kErasePgmFailed,
    },
    kEraseEep,
};

// One area alone. The routine shows what became of it.
inline constexpr std::array kErasePgm{Step{.routine = &Areas::Pgm_Erase}};
inline constexpr std::array kEraseEepAlone{Step{.routine = &Areas::Eep_Erase}};

// A mismatch doesn't stop the run: it is reported at the end with the other areas'.
inline constexpr std::array kWriteStage{
    Step{
        .status = text::kWritingPgm,
        .pause = 200ms,
        .routine = &Areas::Write_Pgm,
        .slot = Slot::Pgm,
        .on_bad = OnBad::CloseBoxAndStop,
        .title = text::kWritePgmTitle,
        .failure = text::kWritePgmFailed,
    },
    Step{
        .status = text::kWritingEep,
        .routine = &Areas::Write_Eep,
        .slot = Slot::Eep,
        .on_bad = OnBad::BoxAndStop,
        .only = Only::WholePart,
        .title = text::kWriteEepTitle,
        .failure = text::kWriteEepFailed,
    },
    Step{
        .status = text::kVerifyingPgm,
        .pause = 200ms,
        .routine = &Areas::Verify_Pgm,
        .slot = Slot::Pgm,
    },
    Step{
        .status = text::kVerifyingEep,
        .routine = &Areas::Verify_Eep,
        .slot = Slot::Eep,
        .only = Only::WholePart,
    },
    Step{
        .status = text::kWritingCfg,
        .pause = 200ms,
        .routine = &Areas::Write_Cfg,
        .slot = Slot::Cfg,
        .on_bad = OnBad::BoxAndStop,
        .only = Only::WithConfig,
        .failure = text::kWriteCfgFailed,
    },
    Step{
        .status = text::kVerifyingCfg,
        .routine = &Areas::Verify_Cfg,
        .slot = Slot::Cfg,
        .only = Only::WithConfig,
    },
};

inline constexpr std::array kReloadPgm{
    Step{
        .status = text::kWritingPgm,
        .routine = &Areas::Write_Pgm,
        .on_bad = OnBad::Tell,
        .failure = text::kReloadWritePgmFailed,
    },
    Step{
        .status = text::kReloadVerifyingPgm,
        .routine = &Areas::Verify_Pgm,
        .on_bad = OnBad::Tell,
        .failure = text::kReloadVerifyPgmFailed,
    },
    Step{
        .status = text::kReloadWritingCfg,
        .pause = 200ms,
        .routine = &Areas::Write_Cfg,
        .on_bad = OnBad::Tell,
        .failure = text::kReloadWriteCfgFailed,
    },
    Step{
        .status = text::kVerifyingCfg,
        .routine = &Areas::Verify_Cfg,
        .on_bad = OnBad::Tell,
        .failure = text::kReloadVerifyCfgFailed,
    },
};

inline constexpr std::array kReloadEep{
    Step{
        .status = text::kReloadErasingEep,
        .pause = 50ms,
        .routine = &Areas::Eep_Erase,
        .on_bad = OnBad::Tell,
        .failure = text::kReloadEraseEepFailed,
    },
    Step{
        .status = text::kReloadWritingEep,
        .pause = 50ms,
        .routine = &Areas::Write_Eep,
        .on_bad = OnBad::Tell,
        .failure = text::kReloadWriteEepFailed,
    },
    Step{
        .status = text::kReloadVerifyingEep,
        .pause = 50ms,
        .routine = &Areas::Verify_Eep,
        .on_bad = OnBad::Tell,
        .failure = text::kReloadVerifyEepFailed,
    },
};

}  // namespace quillon::steps14

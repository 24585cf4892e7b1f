// SPDX-License-Identifier: MIT
// The steps of the devices that no family claims, in the order in which they run.
#pragma once

#include <array>

#include "families/step.h"
#include "families/steps14.h"

namespace quillon::steps_generic {

using namespace std::chrono_literals;

namespace text {
inline constexpr std::string_view kWritingPgm = "プログラムメモリのプログラミング中..........";
inline constexpr std::string_view kPatchingCfg = "コンフィグレーションの修正データ修得中..........";
inline constexpr std::string_view kPatchCfgFailed =
    "コンフィグレーションの修正データ修得に失敗しました。";
inline constexpr std::string_view kChipErasing = "チップイレース.....";
inline constexpr std::string_view kErasingEep = "ＥＥＰＲＯＭデータメモリの消去..........";
inline constexpr std::string_view kEraseEepTitle = "ＥＥＰＲＯＭデータメモリ消去";
inline constexpr std::string_view kEraseEepFailed =
    "ＥＥＰＲＯＭデータメモリの消去に失敗しました。";
inline constexpr std::string_view kVerifyEepTitle = "ＥＥＰＲＯＭデータメモリベリファイ";
inline constexpr std::string_view kVerifyEepFailed =
    "ＥＥＰＲＯＭデータメモリのベリファイに失敗しました。";
}  // namespace text

// Before the blank check. A calibration that can't be read must not be erased.
inline constexpr std::array kBefore{Step{.pause = 300ms}};
inline constexpr Step kEntry{.routine = &Areas::Calibration_Entry, .on_bad = OnBad::Tell};
inline constexpr std::array kBeforeEntry{kEntry, Step{.pause = 300ms}};
inline constexpr std::array kBeforeWord{
    kEntry,
    Step{.pause = 300ms, .routine = &Areas::Word_Read, .on_bad = OnBad::Tell},
    Step{.routine = &Areas::Cfg_Read_12F6, .on_bad = OnBad::Tell},
};

inline constexpr std::array kErase{Step{.routine = &Areas::Chip_Erase, .on_bad = OnBad::Tell}};

// The calibration goes into the image behind the erase, and before the first word is written.
inline constexpr Step kTakeCalibration{
    .status = text::kWritingPgm,
    .pause = 100ms,
    .routine = &Areas::Take_Calibration,
    .on_bad = OnBad::Tell,
};
inline constexpr Step kWritePgm = [] {
    Step step = steps14::kWriteStage[0];
    step.status = text::kWritingPgm;
    return step;
}();
inline constexpr Step kShowCalibration{.routine = &Areas::Show_Calibration};
inline constexpr Step kPatchCfg{
    .status = text::kPatchingCfg,
    .routine = &Areas::Cfg_Patch_Read,
    .slot = Slot::Cfg,
    .on_bad = OnBad::BoxAndStop,
    .only = Only::WithConfig,
    .failure = text::kPatchCfgFailed,
};

inline constexpr std::array kWriteStage12{
    kTakeCalibration,        kWritePgm,
    steps14::kWriteStage[1],  // Write_Eep
    steps14::kWriteStage[2],  // Verify_Pgm
    kShowCalibration,
    steps14::kWriteStage[3],  // Verify_Eep
    steps14::kWriteStage[4],  // Write_Cfg
    steps14::kWriteStage[5],  // Verify_Cfg
};
inline constexpr std::array kWriteStage14{
    kTakeCalibration,
    kWritePgm,
    steps14::kWriteStage[1],
    steps14::kWriteStage[2],
    kShowCalibration,
    steps14::kWriteStage[3],
    kPatchCfg,
    steps14::kWriteStage[4],
    steps14::kWriteStage[5],
};

// The per-area dialog's erases. A failed step doesn't keep the others from running: what an erase
// may have lost all the same is restored.
inline constexpr Step kChip{
    .pause = 100ms, .routine = &Areas::Chip_Erase, .on_bad = OnBad::StopIfRefused};
inline constexpr Step kChipFirst{.status = text::kChipErasing,
                                 .pause = 100ms,
                                 .routine = &Areas::Chip_Erase,
                                 .on_bad = OnBad::StopIfRefused};
inline constexpr Step kPgm{.pause = 100ms, .routine = &Areas::Pgm_Erase};
inline constexpr Step kEep{.pause = 100ms, .routine = &Areas::Eep_Erase};
inline constexpr Step kKeepWord{
    .pause = 100ms,
    .routine = &Areas::Word_Read,
    .on_bad = OnBad::Tell,
    .only = Only::KeepingCalibration,
};
inline constexpr Step kCheckKept{
    .routine = &Areas::Calibration_Check,
    .on_bad = OnBad::Tell,
    .only = Only::KeepingCalibration,
};
inline constexpr Step kKeepBandgap{
    .pause = 100ms,
    .routine = &Areas::Cfg_Read_12F6,
    .on_bad = OnBad::Tell,
    .only = Only::KeepingCalibration,
};
inline constexpr Step kShowKept{.routine = &Areas::Show_Kept_Calibration,
                                .only = Only::KeepingCalibration};
inline constexpr Step kTakeKept{.routine = &Areas::Take_Erase_Calibration, .on_bad = OnBad::Tell};
inline constexpr Step kRestoreWord{.pause = 100ms, .routine = &Areas::Word_Restore};
inline constexpr Step kRestoreBandgap{.routine = &Areas::Cfg_Write_12F6};

inline constexpr std::array kEraseChip{kChipFirst, kEep};
inline constexpr std::array kEraseChipAlone{kChipFirst};
inline constexpr std::array kEraseChipPgmEep{kChipFirst, kPgm, kEep};
inline constexpr std::array kEraseChip12F6{
    Step{.status = text::kChipErasing},
    kEntry,
    kKeepWord,
    kCheckKept,
    kKeepBandgap,
    kShowKept,
    kChip,
    kTakeKept,
    kRestoreWord,
    kRestoreBandgap,
    kEep,
};
inline constexpr std::array kErasePgmByChip{
    Step{.routine = &Areas::Chip_Erase, .on_bad = OnBad::StopIfRefused}};
inline constexpr std::array kErasePgm12F6{
    kEntry,
    Step{.routine = &Areas::Word_Read, .on_bad = OnBad::Tell, .only = Only::KeepingCalibration},
    kCheckKept,
    Step{.routine = &Areas::Cfg_Read_12F6, .on_bad = OnBad::Tell, .only = Only::KeepingCalibration},
    kShowKept,
    Step{.routine = &Areas::Chip_Erase, .on_bad = OnBad::StopIfRefused},
    kTakeKept,
    kRestoreWord,
    kRestoreBandgap,
};

inline constexpr std::array kReloadEep{
    Step{
        .status = text::kErasingEep,
        .routine = &Areas::Eep_Erase,
        .on_bad = OnBad::BoxAndStop,
        .title = text::kEraseEepTitle,
        .failure = text::kEraseEepFailed,
    },
    Step{
        .routine = &Areas::Write_Eep,
        .on_bad = OnBad::BoxAndStop,
        .title = step14_text::kWriteEepTitle,
        .failure = step14_text::kWriteEepFailed,
    },
    Step{
        .status = step14_text::kVerifyingEep,
        .routine = &Areas::Verify_Eep,
        .on_bad = OnBad::BoxAndStop,
        .title = text::kVerifyEepTitle,
        .failure = text::kVerifyEepFailed,
    },
};

}  // namespace quillon::steps_generic

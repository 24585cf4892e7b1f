// SPDX-License-Identifier: MIT
// The controls of frmExtend_Program, the per-area operations, under their real names.
#pragma once

#include "app/controls.h"

namespace quillon {

// Modeless. Visible from its load until it is unloaded.
struct ExtendForm : Form {
    ExtendForm() { Caption.set("拡張プログラム"); }

    // Digits mark the buttons, in the order in which they are shown. A letter would mean something
    // else in the main window: Alt+E, pressed twice there, must not erase a chip.
    //
    // The program side; the caption says which areas it has.
    Label Label_PGM{*this, "Label_PGM", "コードメモリ,CFG,ID"};
    Button Cmd_PGM_Read{*this, "Cmd_PGM_Read", "リード(&1)"};
    Button Cmd_PGM_Program{*this, "Cmd_PGM_Program", "プログラム(&2)"};
    Button Cmd_PGM_Erase{*this, "Cmd_PGM_Erase", "消去(&3)"};
    Button Cmd_PGM_PcbufferClear{*this, "Cmd_PGM_PcbufferClear", "ＰＣバッファクリア(&4)"};
    // The data side; the caption says where a device has none.
    Label Label_DATA{*this, "Label_DATA", "ＥＥＰＲＯＭデータメモリ"};
    Button Cmd_DATA_Read{*this, "Cmd_DATA_Read", "リード(&5)"};
    Button Cmd_DATA_Program{*this, "Cmd_DATA_Program", "プログラム(&6)"};
    Button Cmd_DATA_Erase{*this, "Cmd_DATA_Erase", "消去(&7)"};
    Button Cmd_DATA_PcbufferClear{*this, "Cmd_DATA_PcbufferClear", "ＰＣバッファクリア(&8)"};
    // Both sides
    Button Cmd_Chip_Erace{*this, "Cmd_Chip_Erace", "チップイレース(&9)"};

    int Left = 100;  // twips
    int Top = 100;
};

}  // namespace quillon

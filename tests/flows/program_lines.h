// SPDX-License-Identifier: MIT
// The messages of a program run, stage by stage.
#pragma once

#include <initializer_list>
#include <string_view>

#include "flow_support.h"
#include "link/words.h"

namespace quillon::test {

inline const Lines kSocketLines{
    "マイコンの種類の確認中.....",
    "書込みマイコンの種類の確認終了。",
    "Ｆｌａｓｈプログラムメモリ プログラミング中..........",
};
inline const Lines kBlankLines{
    "ブランクチェック中..........",
    "ブランクチェック中..........プログラムメモリー",
    "ブランクチェック中..........ＥＥＰＲＯＭメモリ",
    "ブランクチェック中..........コンフィグ・ＩＤワード",
};
inline const Lines kFoundBlankLines{"ブランクチェック終了。　デバイスは消去されています。"};

inline Lines erase_lines(std::string_view device) {
    const auto& family = case_of(device);
    Lines lines{"チップイレース中.........."};
    if (!family.erase_title.empty()) lines.emplace_back(family.erase_title);
    for (const auto& erase : family.erases) {
        lines.emplace_back(erase.status);
        lines.emplace_back("成功。");
    }
    lines.emplace_back("イレース.........イレースしました。");
    return lines;
}

inline const Lines kWritePgmLines{
    "Ｆｌａｓｈプログラムメモリのプログラミング中..........",
    "プログラムメモリのプログラミングに成功しました。",
};
inline const Lines kWriteEepLines{
    "ＥＥＰＲＯＭデータメモリのプログラミング..........",
    "ＥＥＰＲＯＭデータメモリのプログラミングに成功しました。",
};
inline const Lines kVerifyLines{
    "プログラムメモリのベリファイ中..........",
    "ＥＥＰＲＯＭデータメモリのベリファイ中..........",
};
inline const Lines kConfigLines{
    "コンフィギュレーションワード プログラミング中..........",
    "コンフィギュレーションワードのプログラミングに成功しました。",
    "コンフィギュレーションワードのベリファイ中..........",
};

inline Lines joined(std::initializer_list<Lines> stages) {
    Lines all;
    for (const auto& stage : stages) all.insert(all.end(), stage.begin(), stage.end());
    return all;
}
// The lines from the erase to the last verify of a successful run.
inline Lines written_lines(std::string_view device) {
    return joined(
        {erase_lines(device), kWritePgmLines, kWriteEepLines, kVerifyLines, kConfigLines});
}

inline Pauses erase_pauses(std::string_view device) {
    Pauses found;
    for (const auto& erase : case_of(device).erases)
        if (erase.pause > 0) found.emplace_back(erase.pause);
    return found;
}
inline Pauses joined(std::initializer_list<Pauses> stages) {
    Pauses all;
    for (const auto& stage : stages) all.insert(all.end(), stage.begin(), stage.end());
    return all;
}

// The wire of a successful run behind the blank check. Call it once the part has been programmed.
inline std::string written_wire(const ExpectedWire& wire) {
    return wire.erase_all() + wire.write_pgm() + wire.write_eep() +
           wire.read_pgm(wire.program_of_target()) + wire.read_eep(wire.eeprom_of_target()) +
           wire.write_cfg() + wire.config();
}

inline void expect_critical_box(const Bench& bench, std::string_view title, std::string_view text) {
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, title);
    EXPECT_EQ(bench.dialogs.boxes[0].text, text);
    EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Critical);
}

inline void expect_programmed(Bench& bench) {
    for (std::size_t w = 0; w < bench.target().program.size(); ++w)
        ASSERT_EQ(bench.target().program[w],
                  word_high_first(bench.session().PgmMem[2 * w], bench.session().PgmMem[2 * w + 1]))
            << "word " << w;
    for (std::size_t c = 0; c < bench.target().eeprom.size(); ++c)
        ASSERT_EQ(bench.target().eeprom[c], bench.session().EepMem[2 * c + 1]) << "cell " << c;
    EXPECT_EQ(bench.target().id, (std::vector<std::uint16_t>{0x3FFA, 0x3FFB, 0x3FFC, 0x3FFD}));
    EXPECT_EQ(bench.target().config[0], bench.session().ConfigWord[1]);
}

}  // namespace quillon::test

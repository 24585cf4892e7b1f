// SPDX-License-Identifier: MIT
// The extend commands: one side of a part at a time.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "cli_bench.h"
#include "image/image_support.h"

namespace quillon::cli {
namespace {

namespace fs = std::filesystem;
using test::CliBench;
using test::data;
using test::Json;
using test::kEndRecord;

bool holds(const std::vector<std::string>& texts, std::string_view text) {
    return std::ranges::count(texts, text) > 0;
}

// A PIC16F84A that stays in its socket from call to call, and a file for both of its sides.
class extend : public testing::Test {
  protected:
    int run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(),
                         {"--device", device, "--socket", cli.path("socket.json")});
        return cli.on_board(std::move(arguments));
    }
    void program() { ASSERT_EQ(run({"program", both}), 0) << cli.out << cli.err; }
    Json socket() const { return cli.file("socket.json"); }
    bool eeprom_is_blank() const {
        const std::string cells_text = socket()["eeprom"].dump();
        return cells_text.find_first_not_of("[]\"F, ") == std::string::npos;
    }
    bool has_socket() const { return fs::exists(cli.home / "socket.json"); }
    std::string write(std::string_view name, const std::string& records) const {
        return cli.home.write(name, records + kEndRecord).string();
    }

    CliBench cli;
    std::string device = "PIC16F84A";
    std::string code = data(0, {0x34, 0x12, 0x78, 0x16}) + data(0x400E, {0xF1, 0x3F});
    std::string cells = data(0x4200, {0x5A, 0, 0xA5, 0});
    std::string both = write("both.hex", code + cells);
};

TEST_F(extend, names_the_operation_in_the_users_words) {
    for (const std::string area : {"chip-erase", "pgm-erase", "data-erase"}) {
        EXPECT_EQ(run({"extend", area}), 0) << area << cli.out;
        EXPECT_EQ(cli.result()["operation"], "extend " + area);
        EXPECT_EQ(cli.result()["status"], "success");
    }
}

TEST_F(extend, chip_erase_leaves_a_blank_part) {
    program();
    ASSERT_EQ(run({"extend", "chip-erase"}), 0) << cli.out;
    EXPECT_EQ(cli.messages().back(), "チップイレースしました。");
    EXPECT_EQ(run({"blank"}), 0) << cli.out;
}

TEST_F(extend, pgm_erase_keeps_the_eeprom) {
    program();
    const auto before = socket();
    ASSERT_EQ(run({"extend", "pgm-erase"}), 0) << cli.out;
    EXPECT_EQ(*(cli.messages().end() - 2), "プログラムメモリ、コンフィグ、ＩＤの消去しました。");
    EXPECT_EQ(socket()["eeprom"], before["eeprom"]);
    EXPECT_NE(socket()["program"], before["program"]);
}

TEST_F(extend, data_erase_keeps_the_program) {
    program();
    const auto before = socket();
    ASSERT_EQ(run({"extend", "data-erase"}), 0) << cli.out;
    EXPECT_EQ(cli.messages().back(), "データメモリの消去しました。");
    EXPECT_EQ(socket()["program"], before["program"]);
    EXPECT_NE(socket()["eeprom"], before["eeprom"]);
}

TEST_F(extend, pgm_program_writes_the_program_side_and_no_eeprom) {
    ASSERT_EQ(run({"extend", "pgm-program", both}), 0) << cli.out;
    EXPECT_EQ(cli.result()["operation"], "extend pgm-program");
    EXPECT_EQ(cli.result()["ResultPgm"], "OK");
    EXPECT_EQ(cli.result()["ResultEep"], "--");
    EXPECT_EQ(cli.result()["TryCount"], 1);
    EXPECT_EQ(cli.result()["PassCount"], 1);
    EXPECT_TRUE(eeprom_is_blank());
    ASSERT_EQ(run({"extend", "pgm-read", "--dump", cli.path("d.json")}), 0);
    EXPECT_TRUE(cli.file("d.json")["PgmMem"].get<std::string>().starts_with("123416783FFF"));
}

// Only the chip erase makes this part's program memory ready for other words.
TEST_F(extend, pgm_program_of_a_used_part_without_a_family_loses_its_eeprom) {
    program();
    const auto other = write("other.hex", data(0, {0x11, 0x22}));
    ASSERT_EQ(run({"--answer", "overwrite=ok", "extend", "pgm-program", other}), 0) << cli.out;
    EXPECT_TRUE(holds(cli.messages(), "チップイレース中.........."));
    EXPECT_TRUE(eeprom_is_blank());
}

TEST_F(extend, pgm_program_asks_before_it_writes_over_a_used_part) {
    program();
    const auto before = socket();
    EXPECT_EQ(run({"extend", "pgm-program", both}), 4) << cli.out;
    EXPECT_EQ(cli.result()["status"], "cancelled");
    ASSERT_EQ(cli.of("question").size(), 1U);
    EXPECT_EQ(cli.of("question")[0]["name"], "overwrite");
    EXPECT_EQ(socket(), before);
}

TEST_F(extend, data_program_writes_the_eeprom_and_keeps_the_program) {
    program();
    const auto before = socket();
    const auto other = write("other.hex", data(0, {0x11, 0x22}) + data(0x4200, {0x77, 0}));
    ASSERT_EQ(run({"extend", "data-program", other}), 0) << cli.out;
    EXPECT_EQ(cli.result()["operation"], "extend data-program");
    EXPECT_EQ(socket()["program"], before["program"]);
    ASSERT_EQ(run({"extend", "data-read", "--dump", cli.path("d.json")}), 0);
    EXPECT_TRUE(cli.file("d.json")["EepMem"].get<std::string>().starts_with("3F773FFF"));
}

TEST_F(extend, reads_fill_their_own_side_of_the_image_and_leave_the_other_blank) {
    program();
    ASSERT_EQ(run({"extend", "pgm-read", "--dump", cli.path("pgm.json")}), 0) << cli.out;
    EXPECT_EQ(cli.result()["operation"], "extend pgm-read");
    const auto pgm = cli.file("pgm.json");
    EXPECT_TRUE(pgm["PgmMem"].get<std::string>().starts_with("123416783FFF"));
    EXPECT_TRUE(pgm["EepMem"].get<std::string>().starts_with("3FFF3FFF"));
    ASSERT_EQ(run({"extend", "data-read", "--dump", cli.path("eep.json")}), 0) << cli.out;
    const auto eep = cli.file("eep.json");
    EXPECT_TRUE(eep["PgmMem"].get<std::string>().starts_with("3FFF3FFF"));
    EXPECT_TRUE(eep["EepMem"].get<std::string>().starts_with("3F5A3FA53FFF"));
}

TEST_F(extend, what_a_read_saves_programs_that_side_of_another_part) {
    program();
    const auto first = socket();
    const auto pgm = cli.path("pgm.hex"), eep = cli.path("eep.hex");
    ASSERT_EQ(run({"extend", "pgm-read", "-o", pgm}), 0) << cli.out;
    EXPECT_EQ(cli.messages().back(), "pgm.hexファイル保存完了。 ");
    ASSERT_EQ(run({"extend", "data-read", "-o", eep}), 0) << cli.out;
    fs::remove(cli.home / "socket.json");
    ASSERT_EQ(run({"extend", "pgm-program", pgm}), 0) << cli.out;
    ASSERT_EQ(run({"extend", "data-program", eep}), 0) << cli.out;
    EXPECT_EQ(socket()["program"], first["program"]);
    EXPECT_EQ(socket()["eeprom"], first["eeprom"]);
}

TEST_F(extend, a_failed_read_saves_nothing_but_dumps_what_there_is) {
    program();
    struct Case {
        std::string area;
        std::string fault;
        int status;
    };
    const std::vector<Case> cases{
        {"pgm-read", "rsp/silent-after:100", 4}, {"pgm-read", "rsc/alter:17", 1},
        {"pgm-read", "rsp/unplug-after:100", 3}, {"data-read", "rsd/silent-after:10", 1},
        {"data-read", "rsd/no-end-code", 1},     {"data-read", "silent-after:0", 3},
    };
    for (const auto& [area, fault, status] : cases) {
        fs::remove(cli.home / "d.json");
        EXPECT_EQ(run({"--fault", fault, "--deadline", "60", "extend", area, "-o",
                       cli.path("out.hex"), "--dump", cli.path("d.json")}),
                  status)
            << fault << cli.out;
        EXPECT_FALSE(fs::exists(cli.home / "out.hex")) << fault;
        EXPECT_EQ(cli.file("d.json")["device"], "PIC16F84A") << fault;
    }
}

TEST_F(extend, pgm_read_of_a_protected_part_fails_and_saves_no_zeros) {
    ASSERT_EQ(run({"--set", "CONFIG1=CP:ON", "program", both}), 0) << cli.out;
    EXPECT_EQ(run({"extend", "pgm-read", "-o", cli.path("out.hex"), "--dump", cli.path("d.json")}),
              1);
    EXPECT_EQ(cli.result()["CodeProtect"], "CP");
    EXPECT_FALSE(fs::exists(cli.home / "out.hex"));
    EXPECT_TRUE(fs::exists(cli.home / "d.json"));
}

TEST_F(extend, an_output_that_cannot_be_written_ends_with_1_and_the_reason) {
    EXPECT_EQ(run({"extend", "pgm-read", "-o", cli.path("none/out.hex")}), 1);
    const auto told = cli.of("message").back();
    EXPECT_EQ(told["text"], "ファイルを保存できませんでした。");
    EXPECT_NE(told["extra"].get<std::string>().find("No such file or directory"),
              std::string::npos);
    EXPECT_EQ(run({"extend", "data-read", "--dump", cli.path("none/out.json")}), 1);
    EXPECT_NE(cli.err.find("none/out.json"), std::string::npos) << cli.err;
}

TEST_F(extend, an_empty_output_is_reported_before_the_board_is_touched) {
    for (const std::string area : {"pgm-read", "data-read"})
        for (const std::string option : {"-o", "--dump"}) {
            EXPECT_EQ(run({"extend", area, option, ""}), 1) << area << option;
            EXPECT_TRUE(cli.messages().empty());
            EXPECT_FALSE(has_socket());
        }
}

TEST_F(extend, a_file_with_two_uses_is_refused_with_2) {
    const auto before = cli.home.read("both.hex");
    const auto out = cli.path("out");
    const std::vector<std::vector<std::string>> lines{
        {"extend", "pgm-read", "-o", out, "--dump", out},
        {"--trace", out, "extend", "data-read", "-o", out},
        {"extend", "data-read", "--dump", cli.path("socket.json")},
        {"--trace", both, "extend", "pgm-program", both},
        {"--trace", both, "extend", "data-program", both},
    };
    for (const auto& line : lines) {
        EXPECT_EQ(run(line), 2) << testing::PrintToString(line);
        EXPECT_NE(cli.err.find("name the same file"), std::string::npos) << cli.err;
        EXPECT_FALSE(has_socket());
    }
    EXPECT_EQ(cli.home.read("both.hex"), before);
}

// What a file has no data for would be written blank, and with success.
TEST_F(extend, a_file_without_data_for_the_side_is_refused_with_1_before_the_board_is_touched) {
    struct Case {
        std::string area;
        std::string records;
        std::string complaint;
    };
    const std::vector<Case> cases{
        {"pgm-program", "", "holds no data record"},
        {"data-program", "", "holds no data record"},
        {"pgm-program", cells, "holds no data for program memory, configuration or ID"},
        {"data-program", code, "holds no data for the EEPROM of PIC16F84A"},
        {"data-program", data(0x4280, {0x11, 0}), "holds no data for the EEPROM of PIC16F84A"},
    };
    for (const auto& [area, records, complaint] : cases) {
        EXPECT_EQ(run({"extend", area, write("a.hex", records)}), 1) << complaint;
        EXPECT_NE(cli.err.find(complaint), std::string::npos) << cli.err;
        EXPECT_FALSE(has_socket()) << complaint;
        EXPECT_FALSE(holds(cli.messages(), "ライターチェック中..........")) << complaint;
    }
}

TEST_F(extend, a_file_with_a_configuration_word_alone_is_a_file_for_the_program_side) {
    EXPECT_EQ(run({"extend", "pgm-program", write("a.hex", data(0x400E, {0xF1, 0x3F}))}), 0)
        << cli.out << cli.err;
}

TEST_F(extend, a_file_with_blank_cells_blanks_the_eeprom) {
    program();
    ASSERT_EQ(run({"extend", "data-program", write("a.hex", data(0x4200, {0xFF, 0}))}), 0)
        << cli.out << cli.err;
    EXPECT_TRUE(eeprom_is_blank());
}

TEST_F(extend, a_file_that_does_not_load_is_refused_with_1_before_the_board_is_touched) {
    for (const std::string area : {"pgm-program", "data-program"}) {
        EXPECT_EQ(run({"extend", area, cli.path("missing.hex")}), 1);
        EXPECT_FALSE(has_socket());
    }
}

// The bytes that a trace shows as sent.
std::string sent(const std::string& trace) {
    constexpr std::string_view kSent = " > ";
    std::string bytes;
    std::istringstream lines{trace};
    for (std::string line; std::getline(lines, line);)
        if (const auto at = line.find(kSent); at != std::string::npos)
            bytes += line.substr(at + kSent.size()) + ' ';
    return bytes;
}

// The check of the board goes out, and nothing behind it.
TEST_F(extend, data_of_a_device_without_eeprom_ends_with_1_and_says_so) {
    device = "PIC16F73";
    struct Case {
        std::vector<std::string> line;
        std::string told;
    };
    const std::vector<Case> cases{
        {{"data-erase"}, "このデバイスにはデータメモリがありません。"},
        {{"data-read"}, "ＯＴＰ版は、ＥＥＰＲＯＭデータメモリを内蔵していません。"},
        {{"data-program", both}, "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。"},
        {{"data-program", write("c.hex", data(0, {0x34, 0x12}))},
         "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。"},
    };
    for (const auto& [line, told] : cases) {
        std::vector<std::string> whole{"--trace", cli.path("t.txt"), "extend"};
        whole.insert(whole.end(), line.begin(), line.end());
        EXPECT_EQ(run(whole), 1) << line[0] << cli.err;
        EXPECT_EQ(cli.result()["status"], "failed");
        EXPECT_EQ(cli.messages().back(), told);
        EXPECT_EQ(sent(cli.home.read("t.txt")), "2A 2A 2A 3F 6D 44 0A ") << line[0];
    }
}

TEST_F(extend, a_device_that_nothing_serves_is_refused_with_2_before_anything_is_sent) {
    device = "PIC18F2550";
    const auto file =
        write("a.hex", data(0, {0x34, 0x12}) + test::upper_address(0xF0) + data(0, {0x5A, 0xA5}));
    const std::vector<std::vector<std::string>> lines{
        {"chip-erase"},         {"pgm-erase"}, {"data-erase"}, {"pgm-program", file},
        {"data-program", file}, {"pgm-read"},  {"data-read"}};
    for (auto line : lines) {
        line.insert(line.begin(), {"--trace", cli.path("t.txt"), "extend"});
        EXPECT_EQ(run(line), 2) << testing::PrintToString(line);
        EXPECT_EQ(cli.result()["status"], "not-served");
        EXPECT_EQ(cli.of("message").back()["text"],
                  "このデバイスのアルゴリズムは、まだ用意されていません。");
        EXPECT_EQ(cli.of("message").back()["colour"], "red");
        EXPECT_EQ(cli.home.read("t.txt"), "");
    }
}

TEST_F(extend, a_board_that_is_not_there_ends_with_3) {
    for (const std::string area :
         {"chip-erase", "pgm-erase", "data-erase", "pgm-read", "data-read"})
        EXPECT_EQ(run({"--fault", "silent-after:0", "extend", area}), 3) << area;
}

}  // namespace
}  // namespace quillon::cli

// SPDX-License-Identifier: MIT
#include "board/wire_log.h"

#include <gtest/gtest.h>

#include <chrono>
#include <initializer_list>
#include <string_view>

namespace quillon {
namespace {

using namespace std::chrono_literals;

// A log written by hand: every step 1 ms after the one before it.
struct Wire {
    Wire& host(std::string_view text) {
        for (const char c : text) host({static_cast<std::uint8_t>(c)});
        return *this;
    }
    Wire& each(std::initializer_list<int> bytes) {
        for (const int byte : bytes) host({static_cast<std::uint8_t>(byte)});
        return *this;
    }
    Wire& host(std::vector<std::uint8_t> bytes) {
        log.to_board(now, bytes);
        now += 1ms;
        return *this;
    }
    Wire& board(std::string_view text) {
        for (const char c : text) log.from_board(now, static_cast<std::uint8_t>(c));
        return *this;
    }
    Wire& board(std::initializer_list<int> bytes) {
        for (const int byte : bytes) log.from_board(now, static_cast<std::uint8_t>(byte));
        return *this;
    }
    Wire& pause(Host::Time time) {
        now += time;
        return *this;
    }
    std::string text() const { return log.text(); }

    WireLog log;
    Host::Time now = 1s;
};

TEST(WireLog, shows_a_burst_and_its_answer_on_one_line) {
    Wire wire;
    wire.host("***").pause(100ms).host("?").pause(4s);
    wire.host("***").pause(100ms).host("?").board("ZQ-LDR412A V6.80\r\n");
    wire.host("mD").each({10}).board({10});
    EXPECT_EQ(wire.text(), "> ***?\n> ***?  < ZQ-LDR412A V6.80\n> mD 0A  < 0A\n");
}

TEST(WireLog, tells_an_identity_that_lacks_its_line_end) {
    Wire wire;
    wire.host("?").board("ZQ-LDR").host("?").board("AB\x01\r\n");
    EXPECT_EQ(wire.text(), "> ?  < ZQ-LDR (no CR LF)\n> ?  < AB\\x01\n");
}

TEST(WireLog, shows_a_short_read_in_full_with_its_acknowledge) {
    Wire wire;
    wire.host("nrsc").each({0, 8});
    wire.board({0x3F, 0xFF, 0x3F, 0xFF, 0x3F, 0xFF, 0x3F, 0xFF});
    wire.board({0x3F, 0xFF, 0x3F, 0xFF, 0x0E, 0x22, 0x3F, 0x40});
    wire.host("@").board("@");
    EXPECT_EQ(wire.text(),
              "> nrsc 00 08  < 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF 0E 22 3F 40  > @  < @\n");
}

TEST(WireLog, folds_a_long_read) {
    Wire wire;
    wire.host("nrsp").each({0, 32});
    for (int block = 0; block < 4; ++block) {
        for (int i = 0; i < 8; ++i) wire.board({0x3F, 0xFF});
        wire.host("@");
    }
    wire.board("@");
    wire.host("nrsp").each({0, 32});
    for (int block = 0; block < 4; ++block) {
        for (int i = 0; i < 8; ++i) wire.board({0x3F, block});
        wire.host("@");
    }
    EXPECT_EQ(wire.text().substr(0, 43), "> nrsp 00 20  < 32 x 3F FF  > @ x4  < @\n> n");
    std::vector<std::uint8_t> data;
    for (std::uint8_t block = 0; block < 4; ++block)
        for (int i = 0; i < 8; ++i) data.insert(data.end(), {0x3F, block});
    char crc[9];
    std::snprintf(crc, sizeof crc, "%08X", crc32(data));
    EXPECT_EQ(wire.text().substr(40),
              std::string{"> nrsp 00 20  < 64 bytes "} + crc + "  > @ x4\n");
}

TEST(WireLog, uses_the_usual_crc) {
    const std::string_view check = "123456789";
    const std::vector<std::uint8_t> bytes{check.begin(), check.end()};
    EXPECT_EQ(crc32(bytes), 0xCBF43926u);
}

TEST(WireLog, shows_replies_with_their_end_code) {
    Wire wire;
    wire.host("nbs").each({0x20, 0}).board({0x3F, 0xFF}).board("@");
    wire.host("nbs").each({0x20, 0}).board({0x3F, 0x40});
    wire.host("nbd").each({0x0A}).board("@");
    wire.host("Nbd").each({0x11, 1, 2}).board("@");
    wire.host("Nbps").each({1, 5}).board({0x0F, 0xFF, 0x0F, 0xFF, 0x40});
    wire.host("nbr").each({4, 0}).board({0x34, 0x80, 0x40});
    wire.host("nbw").each({4, 0, 0x34, 0x80}).board("@");
    wire.host("NXbs").each({0, 0, 0, 0, 0x40, 0}).board({0xFF, 0xFF, 0x40});
    EXPECT_EQ(wire.text(),
              "> nbs 20 00  < 3F FF @\n"
              "> nbs 20 00  < 3F 40\n"
              "> nbd 0A  < @\n"
              "> Nbd 11 01 02  < @\n"
              "> Nbps 01 05  < 0F FF 0F FF @\n"
              "> nbr 04 00  < 34 80 @\n"
              "> nbw 04 00 34 80  < @\n"
              "> NXbs 00 00 00 00 40 00  < FF FF @\n");
}

// The exchanges of the devices that no family serves: each is one line.
TEST(WireLog, shows_the_exchanges_of_parallel_parts) {
    Wire wire;
    wire.host("Nrps").each({0, 1}).board({0x0F, 0xFF, 0x40});
    wire.host("Nrpl").each({0, 2}).board({0x0F, 0xFF, 0x0F, 0xFF, 0x40});
    wire.host("Nbpl").each({8, 5}).board({0x0F, 0xFF, 0x0F, 0xFF, 0x40});
    wire.host("Nwps").each({0, 1}).board("+").host(std::vector<std::uint8_t>{0x0F, 0xF7});
    wire.board("@");
    wire.host("Nwpl").each({0, 1}).board("+").host(std::vector<std::uint8_t>{0x0F, 0xF7});
    wire.board({0x2A, 0x0F, 0xFF, 0x40});
    EXPECT_EQ(wire.text(),
              "> Nrps 00 01  < 0F FF  < @\n"
              "> Nrpl 00 02  < 0F FF 0F FF  < @\n"
              "> Nbpl 08 05  < 0F FF 0F FF @\n"
              "> Nwps 00 01  < +  > 0F F7  < @\n"
              "> Nwpl 00 01  < +  > 0F F7  < 2A 0F FF 40\n");
}

TEST(WireLog, shows_the_exchanges_of_parity_parts_and_modules) {
    Wire wire;
    wire.host("NrSp").each({0, 1}).board({0xFF, 0xFF, 0x40});
    wire.host("NbS").each({0x0F, 0xFF}).board({0xFF, 0xFF, 0x40});
    wire.host("NwSc").each({0, 2});
    wire.board("+").host(std::vector<std::uint8_t>{0x34, 0x92});
    wire.board("+").host(std::vector<std::uint8_t>{0xFF, 0xFF}).board("@");
    wire.host("Nr8d").each({0, 1}).board({0x3F, 0xFF, 0x40});
    wire.host("Nb8").each({0x1F, 0xFF}).board({0x3F, 0xFF, 0x40});
    wire.host("NbD").each({0x02}).board("@");
    EXPECT_EQ(wire.text(),
              "> NrSp 00 01  < FF FF  < @\n"
              "> NbS 0F FF  < FF FF @\n"
              "> NwSc 00 02  < + x2  > 34 92 FF FF  < @\n"
              "> Nr8d 00 01  < 3F FF  < @\n"
              "> Nb8 1F FF  < 3F FF @\n"
              "> NbD 02  < @\n");
}

TEST(WireLog, shows_an_acknowledge_that_comes_before_the_area) {
    Wire wire;
    wire.host("nrsc").each({0, 8}).host("@");
    for (int i = 0; i < 8; ++i) wire.board({0x3F, 0xFF});
    wire.board("@");
    wire.host("nwJc").each({0, 1}).board("+").host(std::vector<std::uint8_t>{0xBF, 0xFF});
    wire.board("@");
    EXPECT_EQ(wire.text(),
              "> nrsc 00 08  < 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF  > @  < @\n"
              "> nwJc 00 01  < +  > BF FF  < @\n");
}

TEST(WireLog, a_power_letter_whose_command_was_dropped_has_a_line_of_its_own) {
    Wire wire;
    wire.host("n").pause(3s).host("***?").board("ZQ-LDR412A V6.80\r\n");
    wire.host("n").pause(3s).host("nbd").each({0x0A}).board("@");
    EXPECT_EQ(wire.text(), "> n\n> ***?  < ZQ-LDR412A V6.80\n> n\n> nbd 0A  < @\n");
}

TEST(WireLog, folds_a_write) {
    Wire wire;
    wire.host("nwFc").each({0, 3});
    for (const int low : {1, 2, 0x6E}) {
        wire.board("+").host(std::vector<std::uint8_t>{0x6E, static_cast<std::uint8_t>(low)});
    }
    wire.board("@").host("nP");
    EXPECT_EQ(wire.text(), "> nwFc 00 03  < + x3  > 6E 01 6E 02 6E 6E  < @\n> nP\n");
}

TEST(WireLog, a_write_that_is_broken_off_shows_where) {
    Wire wire;
    wire.host("nwGe").each({0x20, 0});
    wire.board("+").host(std::vector<std::uint8_t>{0x12, 0x34}).board({0x40, 0x40});
    wire.pause(400ms).host("***?");
    wire.host("nwed").each({0, 2});
    wire.board("+").host(std::vector<std::uint8_t>{0x3F, 0x34}).board({0x2A, 0x00, 0xFF, 0x40});
    EXPECT_EQ(wire.text(),
              "> nwGe 20 00  < +  > 12 34  < 40 40\n"
              "> ***?\n"
              "> nwed 00 02  < +  > 3F 34  < 2A 00 FF 40\n");
}

TEST(WireLog, a_disturbed_ready_byte_ends_a_fold) {
    Wire wire;
    wire.host("nwGe").each({0, 3});
    wire.board("+").host(std::vector<std::uint8_t>{0, 1});
    wire.board({0x2B, 0x00}).host(std::vector<std::uint8_t>{0, 2});
    wire.board("+").host(std::vector<std::uint8_t>{0, 3}).board("@");
    EXPECT_EQ(wire.text(), "> nwGe 00 03  < +  > 00 01  < 2B 00  < +  > 00 02 00 03  < @\n");
}

TEST(WireLog, parameters_may_be_any_byte) {
    Wire wire;
    wire.host("nrsd").each({'*', '?'}).host("***?");
    wire.host("mD").each({'n'}).board({'n'});
    EXPECT_EQ(wire.text(), "> nrsd 2A 3F\n> ***?\n> mD 6E  < 6E\n");
}

TEST(WireLog, a_command_that_was_left_is_over_after_a_while) {
    Wire wire;
    wire.host("n").pause(3s).host("nrs").pause(400ms).host("***?");
    wire.host("nrsp").each({0}).pause(400ms).host("***?");
    EXPECT_EQ(wire.text(), "> n\n> nrs\n> ***?\n> nrsp 00\n> ***?\n");
}

TEST(WireLog, a_lone_word_may_come_in_single_bytes) {
    Wire wire;
    wire.host("NweJ").each({0, 1, 0x0F, 0x6E}).board("@");
    wire.host("NXwed").each({0, 0, 1, 0, 0, 2});
    wire.board("+").each({0x6E}).board("+").each({0x2A}).board("@");
    EXPECT_EQ(wire.text(),
              "> NweJ 00 01  > 0F 6E  < @\n> NXwed 00 00 01 00 00 02  < + x2  > 6E 2A  < @\n");
}

TEST(WireLog, power_commands_have_lines_of_their_own) {
    Wire wire;
    wire.host("nP").host("p").host("NP").host("p");
    EXPECT_EQ(wire.text(), "> nP\n> p\n> NP\n> p\n");
}

TEST(WireLog, an_unknown_command_is_shown_as_it_is) {
    Wire wire;
    wire.host("nz").each({1, 2}).host("***?");
    wire.board("!");
    EXPECT_EQ(wire.text(), "> nz 01 02\n> ***?  < ! (no CR LF)\n");
}

TEST(WireLog, bytes_out_of_nowhere_are_shown) {
    Wire wire;
    wire.board({0x40}).host("p");
    EXPECT_EQ(wire.text(), "< 40\n> p\n");
}

TEST(WireLog, the_full_text_has_every_byte_with_its_time) {
    Wire wire;
    wire.host("m").host(std::vector<std::uint8_t>{0x12, 0x34}).board({0x40, 0x41});
    wire.pause(500us).board({0x42});
    EXPECT_EQ(wire.log.full_text(),
              "1000.000 > 6D\n1001.000 > 12 34\n1002.000 < 40 41\n1002.500 < 42\n");
}

TEST(WireLog, an_empty_log_is_an_empty_text) { EXPECT_EQ(WireLog{}.text(), ""); }

}  // namespace
}  // namespace quillon

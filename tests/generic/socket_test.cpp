// SPDX-License-Identifier: MIT
// The check of the part in the socket: which value each device's part must have, and what happens
// with another.
#include "generic_lines.h"

namespace quillon::test {

namespace {

struct Identity {
    const char* device;
    unsigned value;  // the identification word without its five revision bits
};

// 511: the part has no identification word.
constexpr std::array kIdentities{
    Identity{"PIC12C672", 41},   Identity{"PIC12CE674", 47}, Identity{"PIC16C620A", 36},
    Identity{"PIC16C621A", 37},  Identity{"PIC16C622A", 39}, Identity{"PIC16C63A", 12},
    Identity{"PIC16C65B", 14},   Identity{"PIC16C67", 30},   Identity{"PIC16C73B", 13},
    Identity{"PIC16C76", 29},    Identity{"PIC16C77", 31},   Identity{"PIC12F629", 124},
    Identity{"PIC12F675", 126},  Identity{"PIC16F628", 62},  Identity{"PIC16F628A", 131},
    Identity{"PIC16F648A", 136}, Identity{"PIC16F630", 134}, Identity{"PIC16F676", 135},
    Identity{"PIC16F73", 48},    Identity{"PIC16F74", 49},   Identity{"PIC16F76", 50},
    Identity{"PIC16F77", 51},    Identity{"PIC16F819", 39},  Identity{"PIC16F84A", 43},
    Identity{"PIC16F870", 104},  Identity{"PIC16F871", 105}, Identity{"PIC16F872", 71},
    Identity{"PIC16F88", 59},    Identity{"PIC16F87", 57},   Identity{"PIC16C554", 511},
    Identity{"PIC16C558", 511},  Identity{"PIC16C620", 511}, Identity{"PIC16C621", 511},
    Identity{"PIC16C622", 511},  Identity{"PIC16C62A", 511}, Identity{"PIC16C63", 511},
    Identity{"PIC16C64", 511},   Identity{"PIC16C64A", 511}, Identity{"PIC16C71", 511},
    Identity{"PIC16C711", 511},  Identity{"PIC16C710", 511}, Identity{"PIC16C715", 511},
    Identity{"PIC16C72", 511},   Identity{"PIC16C74A", 511}, Identity{"PIC16F84", 511},
};

// Devices of these types that aren't in the table.
constexpr std::array kUnchecked{
    "PIC12C671",  "PIC12CE673", "PIC16C61",   "PIC16C62",   "PIC16C62B", "PIC16C65",  "PIC16C65A",
    "PIC16C66",   "PIC16C72A",  "PIC16C73",   "PIC16C73A",  "PIC16C74",  "PIC16C74B", "PIC16C557",
    "PIC16CE623", "PIC16CE624", "PIC16CE625", "PIC16C712",  "PIC16C716", "PIC16C642", "PIC16C662",
    "PIC16C84",   "PIC16F83",   "PIC16F627",  "PIC16F627A", "PIC16F818",
};

struct SocketBench : Bench {
    // A part of 16 words, because the check is what counts.
    explicit SocketBench(std::string_view device)
        : Bench{device, {CatalogueBlock{device, {{"PGM_SIZE_WORD", "0x0F"}}}}} {
        buttons_stay_locked = true;  // that of the per-area dialog, of a one-time part
    }
    // A read begins with the check and asks nothing else.
    Outcome check_with(unsigned value, BoxAnswer answer = BoxAnswer::Cancel) {
        target().identity = static_cast<std::uint16_t>(value << 5U | 0x13U);
        dialogs.answers = {answer};
        return run->flows.Command_read();
    }
};

const std::string kMismatch =
    "指定しているマイコンとソケットにセットしているマイコンの種類が違います。";

}  // namespace

TEST(generic_socket, takes_the_part_that_has_the_value_of_the_device) {
    for (const auto& [device, value] : kIdentities) {
        SocketBench bench{device};
        EXPECT_EQ(bench.check_with(value), Outcome::Success) << device;
        EXPECT_TRUE(bench.dialogs.boxes.empty()) << device;
        EXPECT_EQ(std::ranges::count(bench.shown->lines, "ソケット確認終了。"), 1) << device;
    }
}

TEST(generic_socket, takes_no_part_that_has_another_value_without_asking) {
    for (const auto& [device, value] : kIdentities) {
        SocketBench bench{device};
        EXPECT_EQ(bench.check_with(value == 511 ? 510 : value + 1), Outcome::Cancelled) << device;
        EXPECT_EQ(bench.dialogs.boxes.size(), 1U) << device;
        EXPECT_EQ(bench.shown->lines.back(), kMismatch) << device;
    }
}

TEST(generic_socket, agrees_with_the_parts_that_the_catalogue_describes) {
    for (const auto& row : kIdentities) {
        SocketBench bench{row.device};
        EXPECT_EQ((bench.target().identity & 0x3FFFU) / 32, row.value) << row.device;
    }
}

TEST(generic_socket, takes_any_part_of_a_device_that_is_not_in_the_table) {
    for (const auto* device : kUnchecked) {
        for (const unsigned value : {1U, 39U, 511U}) {
            SocketBench bench{device};
            EXPECT_EQ(bench.check_with(value), Outcome::Success) << device << " " << value;
            EXPECT_TRUE(bench.dialogs.boxes.empty()) << device;
        }
    }
}

TEST(generic_socket, does_not_tell_PIC16C622A_and_PIC16F819_from_each_other) {
    for (const auto& [device, other] :
         {std::pair{"PIC16C622A", "PIC16F819"}, std::pair{"PIC16F819", "PIC16C622A"}}) {
        Bench bench{device, {CatalogueBlock{device}, CatalogueBlock{other}}};
        bench.buttons_stay_locked = true;
        bench.put_into_socket(other);
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
        EXPECT_TRUE(bench.dialogs.boxes.empty());
    }
}

using generic_socket_check = EveryType;
INSTANTIATE_TEST_SUITE_P(, generic_socket_check, testing::ValuesIn(kGenericCases), type_name);

TEST_P(generic_socket_check, names_an_empty_socket_in_red_behind_a_hint_for_a_new_board) {
    for (const auto operation :
         {&Flows::Command_read, &Flows::Command_Verify, &Flows::Command_program}) {
        GenericBench bench{GetParam()};
        bench.board.add_fault("empty-socket");
        EXPECT_EQ((bench.run->flows.*operation)(), Outcome::Failed);

        EXPECT_EQ(
            bench.shown->lines,
            generic::behind_check(
                bench, {"ソケット確認中.....",
                        "キットの組立て直後の場合は、製作にミスがある可能性があります。メニューバ"
                        "ー ⇒ ヘルプ ⇒ 製作確認資料をご覧になり確認を行ってください。",
                        "[+] [red] マイコンがソケットに正しくセットされていません。"}));
        EXPECT_TRUE(bench.dialogs.boxes.empty());
        EXPECT_EQ(bench.session().TryCount, 0);
        EXPECT_EQ(bench.session().Status, Token::NG);
        EXPECT_EQ(bench.log(), "");
    }
}

TEST_P(generic_socket_check, takes_31_for_an_empty_socket_and_32_for_another_part) {
    GenericBench bench{GetParam()};
    bench.target().identity = 31;
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    bench.target().identity = 32;
    EXPECT_NE(bench.run->flows.Command_read(), Outcome::Failed);
}

TEST_P(generic_socket_check, looks_at_14_bits_and_not_at_the_revision) {
    GenericBench bench{GetParam()};
    bench.target().identity |= 0xC01FU;
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(generic_other_part, is_programmed_on_ok) {
    GenericBench bench{"FLASH1"};
    bench.target().identity = 0x0762;
    bench.dialogs.answers = {BoxAnswer::Ok};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    const auto& box = bench.dialogs.boxes[0];
    EXPECT_EQ(box.title, "書込みマイコンの種類の確認");
    EXPECT_EQ(box.text, kMismatch +
                            "\r\n　継続する時は、　　『ＯＫ』　　 を押してください。"
                            "\r\n　中止する時は、『キャンセル』　を押してください。");
    EXPECT_EQ(box.buttons, BoxButtons::OkCancel);
    EXPECT_EQ(box.default_answer, BoxAnswer::Cancel);
    generic::expect_programmed(bench);
    EXPECT_EQ(std::ranges::count(bench.shown->lines, kMismatch), 1);
    EXPECT_EQ(std::ranges::count(bench.shown->lines, "ソケット確認終了。"), 0);
}

TEST(generic_other_part, is_left_alone_on_cancel) {
    GenericBench bench{"FLASH1"};
    bench.target().identity = 0x0762;
    const auto part = bench.target();
    bench.dialogs.answers = {BoxAnswer::Cancel};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);

    const GenericWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.socket());
    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.shown->lines, generic::behind_check(bench, {"ソケット確認中.....", kMismatch}));
    EXPECT_EQ(bench.session().TryCount, 0);
    EXPECT_EQ(bench.log(), "");
}

}  // namespace quillon::test

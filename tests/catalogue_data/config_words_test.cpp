// SPDX-License-Identifier: MIT
// The configuration words of each block: free of contradictions, and those of the device.
#include <gtest/gtest.h>

#include <algorithm>
#include <ios>
#include <map>
#include <set>
#include <vector>

#include "device_facts.h"
#include "plain_reader.h"

namespace catalogue_data {
namespace {

constexpr unsigned kProtectWord18 = 5;  // the PIC18 word of the protection bits

std::string where(const Block& block, const Word& word) {
    return block.name + " CONFIG" + std::to_string(word.n);
}

std::string where(const Block& block, const Word& word, const Field& field) {
    return where(block, word) + " " + field.name;
}

template <typename Body>
void for_each_word(Body check) {
    ASSERT_FALSE(catalogue().blocks.empty());
    for (const Block& block : catalogue().blocks) {
        EXPECT_FALSE(block.words.empty()) << block.name << " has no configuration word";
        for (const Word& word : block.words) check(block, word);
    }
}

template <typename Body>
void for_each_field(Body check) {
    for_each_word([&](const Block& block, const Word& word) {
        for (const Field& field : word.fields) check(block, word, field);
    });
}

const Field* find_field(const Word& word, std::string_view name) {
    const auto found = std::ranges::find(word.fields, name, &Field::name);
    return found == word.fields.end() ? nullptr : &*found;
}

std::uint32_t mask_of(const Field& field) { return field.options.front().mask; }

// The option whose bits the word has, or null.
const Option* option_for(const Field& field, std::uint32_t word) {
    const auto found = std::ranges::find_if(
        field.options, [&](const Option& each) { return (word & each.mask) == each.value; });
    return found == field.options.end() ? nullptr : &*found;
}

// Every value that the bits of the mask can have.
std::vector<std::uint32_t> codes_of(std::uint32_t mask) {
    std::vector<std::uint32_t> codes{0};
    for (std::uint32_t code = mask; code != 0; code = (code - 1) & mask) codes.push_back(code);
    return codes;
}

// The bits of the mask that read the same as `bit` in every option.
std::uint32_t copies_of(std::uint32_t bit, const Field& field) {
    std::uint32_t copies = mask_of(field);
    for (const Option& option : field.options)
        copies &= (option.value & bit) != 0 ? option.value : ~option.value;
    return copies;
}

// Whether each bit of the code agrees with its copies.
bool copies_agree(std::uint32_t code, const Field& field) {
    for (std::uint32_t bit = 1; bit <= mask_of(field); bit <<= 1) {
        if ((mask_of(field) & bit) == 0) continue;
        const std::uint32_t copies = copies_of(bit, field);
        if ((code & copies) != 0 && (code & copies) != copies) return false;
    }
    return true;
}

TEST(configuration_field, has_options_that_stay_inside_the_one_mask_of_the_field) {
    for_each_field([](const Block& block, const Word& word, const Field& field) {
        EXPECT_GE(field.options.size(), 2U) << where(block, word, field) << " leaves no choice";
        EXPECT_NE(mask_of(field), 0U) << where(block, word, field);
        for (const Option& option : field.options) {
            EXPECT_EQ(option.mask, mask_of(field))
                << where(block, word, field) << " " << option.name << ": another mask";
            EXPECT_EQ(option.value & ~option.mask, 0U)
                << where(block, word, field) << " " << option.name << ": value outside the mask";
        }
    });
}

TEST(configuration_field, has_options_that_differ_in_name_and_value) {
    for_each_field([](const Block& block, const Word& word, const Field& field) {
        std::set<std::string> names;
        std::set<std::uint32_t> values;
        for (const Option& option : field.options) {
            EXPECT_TRUE(names.insert(option.name).second)
                << where(block, word, field) << " " << option.name << " stands twice";
            EXPECT_TRUE(values.insert(option.value).second)
                << where(block, word, field) << " " << option.name << ": value stands twice";
        }
    });
}

// A word from a file or a device is shown by its options, and a choice in one field sets the others
// from the options that they show. So a code without an option would turn into another code. The
// protection field has a test of its own below.
TEST(configuration_field, has_an_option_for_every_code_of_its_bits) {
    for_each_field([](const Block& block, const Word& word, const Field& field) {
        if (field.name == "CP") return;
        for (const std::uint32_t code : codes_of(mask_of(field)))
            EXPECT_NE(option_for(field, code), nullptr)
                << where(block, word, field) << " has no option for 0x" << std::hex << code;
    });
}

TEST(configuration_field, shares_no_bit_with_another_field_of_the_word) {
    for_each_word([](const Block& block, const Word& word) {
        std::uint32_t taken = 0;
        for (const Field& field : word.fields) {
            EXPECT_EQ(mask_of(field) & taken, 0U)
                << where(block, word, field) << " overlaps an earlier field";
            taken |= mask_of(field);
        }
    });
}

TEST(configuration_field, lies_inside_the_word_and_off_its_fixed_bits) {
    for_each_field([](const Block& block, const Word& word, const Field& field) {
        EXPECT_EQ(mask_of(field) & ~word.width, 0U)
            << where(block, word, field) << " leaves the word";
        EXPECT_EQ(mask_of(field) & word.always_zero, 0U)
            << where(block, word, field) << " has bits that are always 0";
        EXPECT_EQ(mask_of(field) & word.always_one, 0U)
            << where(block, word, field) << " has bits that are always 1";
    });
}

// A field's first row makes its row in the grid, so all its rows must be in one run. A second field
// of that name in the same word would get the first one's options.
TEST(configuration_field, stands_in_one_run_of_rows_and_once_in_a_block) {
    for (const Block& block : catalogue().blocks) {
        std::map<std::string, int> seen;
        for (const Word& word : block.words) {
            for (const Field& field : word.fields) {
                EXPECT_EQ(++seen[field.name], 1)
                    << where(block, word, field) << " is torn apart or named twice";
            }
        }
    }
}

// Options are found by field and option name joined, so the joined text has to be unique.
TEST(configuration_field, is_found_by_its_name_and_option_joined) {
    for (const Block& block : catalogue().blocks) {
        std::set<std::string> joined;
        for (const Word& word : block.words) {
            for (const Field& field : word.fields) {
                for (const Option& option : field.options) {
                    EXPECT_TRUE(joined.insert(field.name + option.name).second)
                        << where(block, word, field) << " " << option.name;
                }
            }
        }
    }
}

TEST(configuration_word, has_no_bit_that_is_always_0_and_always_1) {
    for_each_word([](const Block& block, const Word& word) {
        EXPECT_EQ(word.always_zero & word.always_one, 0U) << where(block, word);
        EXPECT_EQ((word.always_zero | word.always_one | word.default_value) & ~word.width, 0U)
            << where(block, word) << " has bits outside its width";
    });
}

// Starts from all bits that may be 1, as the grid does, and applies one option of each field.
TEST(configuration_word, reaches_its_default_by_a_choice_of_options) {
    for_each_word([](const Block& block, const Word& word) {
        std::uint32_t reached = (word.width & ~word.always_zero) | word.always_one;
        for (const Field& field : word.fields) {
            const Option* const option = option_for(field, word.default_value);
            ASSERT_NE(option, nullptr)
                << where(block, word, field) << " has no option for the default";
            reached &= option->value | (option->mask ^ word.width);
        }
        EXPECT_EQ(reached, word.default_value)
            << where(block, word) << " reaches 0x" << std::hex << reached;
    });
}

TEST(configuration_word, is_the_device_s_own_in_width_default_and_fixed_bits) {
    for (const Block& block : catalogue().blocks) {
        const DeviceFacts* const device = facts_of(block.name);
        ASSERT_NE(device, nullptr) << block.name;
        ASSERT_EQ(block.words.size(), device->config.size()) << block.name;
        for (std::size_t i = 0; i < block.words.size(); ++i) {
            const Word& word = block.words[i];
            const Word& known = device->config[i];
            EXPECT_EQ(word.n, known.n) << where(block, word);
            EXPECT_EQ(word.width, known.width) << where(block, word) << " width";
            EXPECT_EQ(word.default_value, known.default_value) << where(block, word) << " default";
            EXPECT_EQ(word.always_zero, known.always_zero) << where(block, word) << " always 0";
            EXPECT_EQ(word.always_one, known.always_one) << where(block, word) << " always 1";
        }
    }
}

void expect_known_options(const Block& block, const Word& word, const Field& field,
                          const Field& known) {
    ASSERT_EQ(field.options.size(), known.options.size()) << where(block, word, field);
    for (std::size_t i = 0; i < field.options.size(); ++i) {
        const Option& option = field.options[i];
        EXPECT_EQ(option.name, known.options[i].name) << where(block, word, field);
        EXPECT_EQ(option.mask, known.options[i].mask)
            << where(block, word, field) << " " << option.name << " mask";
        EXPECT_EQ(option.value, known.options[i].value)
            << where(block, word, field) << " " << option.name << " value";
    }
}

TEST(configuration_word, has_the_device_s_fields_with_their_options_in_order) {
    for (const DeviceFacts& device : all_facts()) {
        const auto block = std::ranges::find(catalogue().blocks, device.name, &Block::name);
        ASSERT_NE(block, catalogue().blocks.end()) << device.name;
        ASSERT_EQ(block->words.size(), device.config.size()) << device.name;
        for (std::size_t i = 0; i < device.config.size(); ++i) {
            const Word& word = block->words[i];
            EXPECT_EQ(word.fields.size(), device.config[i].fields.size()) << where(*block, word);
            for (const Field& known : device.config[i].fields) {
                const Field* const field = find_field(word, known.name);
                if (field == nullptr) {
                    ADD_FAILURE() << where(*block, word) << " lacks " << known.name;
                    continue;
                }
                expect_known_options(*block, word, *field, known);
            }
        }
    }
}

// A row whose field is named exactly CP sets the mask that the protection checks use.
TEST(code_protection, is_a_field_named_CP_on_every_12_bit_and_14_bit_part) {
    std::size_t parts = 0;
    for (const DeviceFacts& device : all_facts()) {
        if (!device.code_protect) continue;
        ++parts;
        const auto block = std::ranges::find(catalogue().blocks, device.name, &Block::name);
        ASSERT_NE(block, catalogue().blocks.end()) << device.name;
        ASSERT_EQ(device.code_protect->field, "CP") << device.name;
        const auto word = std::ranges::find(block->words, device.code_protect->word, &Word::n);
        ASSERT_NE(word, block->words.end()) << device.name;
        const Field* const field = find_field(*word, "CP");
        ASSERT_NE(field, nullptr) << where(*block, *word) << " lacks CP";
        EXPECT_EQ(mask_of(*field), device.code_protect->mask) << where(*block, *word, *field);
        const Option* const open = option_for(*field, word->default_value);
        ASSERT_NE(open, nullptr) << where(*block, *word, *field);
        EXPECT_EQ(open->name, "OFF") << where(*block, *word, *field) << " is on by default";
        EXPECT_EQ(open->value, open->mask) << where(*block, *word, *field);
    }
    EXPECT_EQ(parts, 179U);
}

// The protection bits of a word are copies of one or two bits. Copies that disagree are no user's
// choice. Such a word is reported as mixed, so its code must not have an option.
TEST(code_protection, has_an_option_for_every_code_whose_copied_bits_agree) {
    for_each_field([](const Block& block, const Word& word, const Field& field) {
        if (field.name != "CP") return;
        for (const std::uint32_t code : codes_of(mask_of(field)))
            EXPECT_EQ(option_for(field, code) != nullptr, copies_agree(code, field))
                << where(block, word, field) << " 0x" << std::hex << code;
    });
}

TEST(code_protection, of_a_PIC18_is_the_whole_of_word_5_and_no_field_named_CP) {
    std::size_t parts = 0;
    for (const Block& block : catalogue().blocks) {
        const DeviceFacts* const device = facts_of(block.name);
        if (device == nullptr || !device->pic18) continue;
        ++parts;
        ASSERT_EQ(block.words.size(), 7U) << block.name;
        std::uint32_t fields = 0;
        for (const Word& word : block.words) {
            EXPECT_EQ(find_field(word, "CP"), nullptr) << where(block, word);
            if (word.n != kProtectWord18) continue;
            for (const Field& field : word.fields) fields |= mask_of(field);
        }
        EXPECT_EQ(fields, device->pic18->config5_mask) << block.name << " CONFIG5";
    }
    EXPECT_EQ(parts, 33U);
}

}  // namespace
}  // namespace catalogue_data

// SPDX-License-Identifier: MIT
// Reads device_facts.json. Throws on a damaged file, which fails every test that needs it.
#include "device_facts.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace catalogue_data {
namespace {

using nlohmann::json;

std::uint32_t hex(const json& value) {
    const auto parsed = number(value.get<std::string>());
    if (!parsed) {
        throw std::runtime_error{"device_facts.json: bad number " + value.dump()};
    }
    return *parsed;
}

Word word_from(const json& row) {
    Word word{row.at(0).get<unsigned>(),
              hex(row.at(1)),
              hex(row.at(2)),
              hex(row.at(3)),
              hex(row.at(4)),
              {}};
    for (const json& each : row.at(5)) {
        Field field{each.at(0).get<std::string>(), {}};
        for (const json& option : each.at(2)) {
            field.options.push_back(
                {option.at(0).get<std::string>(), hex(each.at(1)), hex(option.at(1))});
        }
        word.fields.push_back(std::move(field));
    }
    return word;
}

ErasePayload payload_from(const json& pair) {
    ErasePayload payload{.at_3C0005 = std::nullopt, .at_3C0004 = hex(pair.at(1))};
    if (!pair.at(0).is_null()) {
        payload.at_3C0005 = hex(pair.at(0));
    }
    return payload;
}

Pic18Facts pic18_from(const json& row) {
    Pic18Facts facts;
    for (std::size_t i = 0; i < facts.devid.size(); ++i) {
        facts.devid[i] = hex(row.at("devid").at(i));
    }
    facts.config5_mask = hex(row.at("config5_mask"));
    facts.numbers = {
        {"WRITE_BUFFER_SIZE_BYTE", row.at("write_buffer").get<std::uint32_t>()},
        {"ERASE_BUFFER_SIZE_BYTE", row.at("erase_buffer").get<std::uint32_t>()},
        {"PROGRAMMING_TIME_MS", row.at("programming_ms").get<std::uint32_t>()},
        {"ERASE_TIME_MS", row.at("erase_ms").get<std::uint32_t>()},
        {"BLOCK_NUMBER", row.at("blocks").get<std::uint32_t>()},
        {"BLOCK_SIZE_WORD", row.at("block_words").get<std::uint32_t>()},
    };
    for (const auto& [area, pair] : row.at("erase").items()) {
        facts.erase.emplace(area, payload_from(pair));
    }
    return facts;
}

void read_optional_parts(const json& row, DeviceFacts& device) {
    if (row.contains("cp")) {
        const json& cp = row.at("cp");
        device.code_protect = {cp.at("word").get<unsigned>(), cp.at("field").get<std::string>(),
                               hex(cp.at("mask"))};
    }
    if (row.contains("osccal")) {
        const json& osccal = row.at("osccal");
        device.osccal = {osccal.at("opcode").get<std::string>(), std::nullopt};
        if (osccal.contains("centre")) {
            device.osccal->centre = hex(osccal.at("centre"));
        }
    }
    if (row.contains("pic18")) {
        device.pic18 = pic18_from(row.at("pic18"));
    }
}

DeviceFacts device_from(const json& row, const std::vector<Word>& words) {
    DeviceFacts device;
    row.at("name").get_to(device.name);
    row.at("core").get_to(device.core);
    row.at("memory").get_to(device.memory);
    row.at("family").get_to(device.family);
    row.at("type").get_to(device.type);
    row.at("package").get_to(device.package);
    row.at("power").get_to(device.power);
    row.at("vpp_max").get_to(device.vpp_max);
    row.at("vdd_max").get_to(device.vdd_max);
    row.at("words").get_to(device.words);
    row.at("eeprom").get_to(device.eeprom);
    for (const json& index : row.at("config")) {
        device.config.push_back(words.at(index.get<std::size_t>()));
    }
    read_optional_parts(row, device);
    return device;
}

std::vector<DeviceFacts> read_facts(const std::string& path) {
    std::ifstream stream{path};
    const json file = json::parse(stream);
    std::vector<Word> words;
    std::ranges::transform(file.at("words"), std::back_inserter(words), word_from);
    std::vector<DeviceFacts> devices;
    for (const json& row : file.at("devices")) {
        devices.push_back(device_from(row, words));
    }
    return devices;
}

}  // namespace

bool DeviceFacts::has_field(std::string_view field) const {
    return std::ranges::any_of(config, [&](const Word& word) {
        return std::ranges::find(word.fields, field, &Field::name) != word.fields.end();
    });
}

const std::vector<DeviceFacts>& all_facts() {
    static const std::vector<DeviceFacts> facts = read_facts(DEVICE_FACTS);
    return facts;
}

const DeviceFacts* facts_of(std::string_view name) {
    const auto& facts = all_facts();
    const auto found = std::ranges::find(facts, name, &DeviceFacts::name);
    return found == facts.end() ? nullptr : &*found;
}

}  // namespace catalogue_data

// SPDX-License-Identifier: MIT
#include "board/target_json.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>

namespace quillon {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kRow = 16;
constexpr std::size_t kMostWords = 0x100000;
constexpr std::size_t kMostCells = 0x10000;
// The largest target takes a third of it.
constexpr std::uintmax_t kMostBytes{16U << 20U};

constexpr std::array<std::pair<Core, std::string_view>, 3> kCores{
    {{Core::Bits12, "12-bit"}, {Core::Bits14, "14-bit"}, {Core::Pic18, "pic18"}}};

struct Damaged : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string word_text(std::uint32_t word, int digits = 4) {
    return fmt::format("{:0{}X}", word, digits);
}

template <class Cells>
Json rows(const Cells& cells, int digits) {
    Json all = Json::array();
    std::string row;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        row += (row.empty() ? "" : " ") + word_text(cells[i], digits);
        if (i % kRow != kRow - 1 && i + 1 != cells.size()) continue;
        all.push_back(std::exchange(row, {}));
    }
    return all;
}

Json words(const std::vector<std::uint16_t>& list) {
    Json all = Json::array();
    for (const auto word : list) all.push_back(word_text(word));
    return all;
}

Json erasure(const EraseCode18& code) {
    std::string bytes;
    for (const auto byte : code.code) bytes += word_text(byte, 2);
    return {{"code", bytes},
            {"program", code.erases.program},
            {"eeprom", code.erases.eeprom},
            {"config", code.erases.config},
            {"from", code.from},
            {"to", code.to}};
}

const Json& field(const Json& object, const char* name) {
    if (!object.is_object() || !object.contains(name))
        throw Damaged{fmt::format("\"{}\" is missing", name)};
    return object.at(name);
}

std::uint32_t word_of(std::string_view text, std::uint32_t most, std::string_view name) {
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc{} || end != text.data() + text.size() || value > most)
        throw Damaged{
            fmt::format("\"{}\": \"{}\" is no hexadecimal number up to {:X}", name, text, most)};
    return value;
}

std::string text_of(const Json& object, const char* name) {
    const Json& value = field(object, name);
    if (!value.is_string()) throw Damaged{fmt::format("\"{}\" is no text", name)};
    return value.get<std::string>();
}

std::uint16_t word_field(const Json& object, const char* name) {
    return static_cast<std::uint16_t>(word_of(text_of(object, name), 0xFFFF, name));
}

std::size_t count_field(const Json& object, const char* name, std::size_t most) {
    const Json& value = field(object, name);
    if (!value.is_number_unsigned() || value.get<std::uint64_t>() > most)
        throw Damaged{fmt::format("\"{}\" is no number from 0 to {}", name, most)};
    return value.get<std::size_t>();
}

bool flag_field(const Json& object, const char* name) {
    const Json& value = field(object, name);
    if (!value.is_boolean()) throw Damaged{fmt::format("\"{}\" is neither true nor false", name)};
    return value.get<bool>();
}

std::vector<std::uint16_t> words_field(const Json& object, const char* name, std::size_t most) {
    const Json& list = field(object, name);
    if (!list.is_array()) throw Damaged{fmt::format("\"{}\" is no list", name)};
    std::vector<std::uint16_t> all;
    for (const auto& entry : list) {
        if (!entry.is_string()) throw Damaged{fmt::format("\"{}\" holds what is no text", name)};
        all.push_back(
            static_cast<std::uint16_t>(word_of(entry.get_ref<const std::string&>(), 0xFFFF, name)));
    }
    if (all.size() > most) throw Damaged{fmt::format("\"{}\" has more than {} words", name, most)};
    return all;
}

// Fills the cells from the rows. Cells without a row keep their value.
template <class Cells>
void read_rows(const Json& object, const char* name, std::uint32_t most, Cells& cells) {
    const Json& list = field(object, name);
    if (!list.is_array()) throw Damaged{fmt::format("\"{}\" is no list", name)};
    std::size_t next = 0;
    for (const auto& row : list) {
        if (!row.is_string()) throw Damaged{fmt::format("\"{}\" holds what is no text", name)};
        std::string_view rest = row.get_ref<const std::string&>();
        while (!rest.empty()) {
            const auto blank = std::min(rest.find(' '), rest.size());
            if (next == cells.size())
                throw Damaged{fmt::format("\"{}\" has more than {} cells", name, cells.size())};
            cells[next++] =
                static_cast<typename Cells::value_type>(word_of(rest.substr(0, blank), most, name));
            rest.remove_prefix(std::min(blank + 1, rest.size()));
        }
    }
}

Core core_field(const Json& part) {
    const std::string text = text_of(part, "core");
    for (const auto& [core, name] : kCores)
        if (name == text) return core;
    throw Damaged{fmt::format("\"core\": \"{}\" is none of 12-bit, 14-bit, pic18", text)};
}

EraseCode18 erase_code(const Json& entry) {
    EraseCode18 code;
    const std::string bytes = text_of(entry, "code");
    if (bytes.size() % 2 != 0) throw Damaged{"\"code\" has half a byte"};
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        code.code.push_back(
            static_cast<std::uint8_t>(word_of(std::string_view{bytes}.substr(i, 2), 0xFF, "code")));
    code.erases.program = flag_field(entry, "program");
    code.erases.eeprom = flag_field(entry, "eeprom");
    code.erases.config = flag_field(entry, "config");
    code.from = count_field(entry, "from", kMostWords);
    code.to = count_field(entry, "to", kMostWords);
    return code;
}

void read_part(const Json& part, SimulatedTarget& target) {
    target.core = core_field(part);
    target.memory = flag_field(part, "one_time") ? ProgramMemory::OneTime : ProgramMemory::Flash;
    const std::string algorithm = text_of(part, "algorithm");
    if (algorithm.size() != 1) throw Damaged{"\"algorithm\" is not one letter"};
    target.algorithm = algorithm[0];
    target.blank_word = word_field(part, "blank_word");
    target.program.assign(count_field(part, "program_words", kMostWords), target.blank_word);
    target.eeprom.assign(count_field(part, "eeprom_cells", kMostCells), 0xFF);
    target.config_blank = words_field(part, "config_blank", 7);
    target.config_mask = words_field(part, "config_mask", 7);
    target.config_force = words_field(part, "config_force", 7);
    target.protect_mask = word_field(part, "protect_mask");
    target.osccal_word = part.contains("osccal_word") && flag_field(part, "osccal_word");
    target.chip_erase_only =
        part.contains("chip_erase_only") && flag_field(part, "chip_erase_only");
    const Json& codes = field(part, "erase_codes");
    if (!codes.is_array()) throw Damaged{"\"erase_codes\" is no list"};
    for (const auto& entry : codes) target.erase_codes.push_back(erase_code(entry));
}

SimulatedTarget target_of(const Json& json) {
    if (!json.is_object()) throw Damaged{"it is no JSON object"};
    SimulatedTarget target;
    target.name = text_of(json, "device");
    read_part(field(json, "part"), target);
    target.identity = word_field(json, "identity");
    target.config = words_field(json, "config", 7);
    const std::size_t count = target.config.size();
    if (target.config_blank.size() != count || target.config_mask.size() != count ||
        target.config_force.size() != count)
        throw Damaged{"\"config\" and the part's lists differ in length"};
    target.id = words_field(json, "id", 8);
    if (target.id.size() != (target.core == Core::Pic18 ? 8u : 4u))
        throw Damaged{"\"id\" has the wrong number of words"};
    target.calibration = words_field(json, "calibration", 9);
    if (json.contains("backup_osccal")) target.backup_osccal = word_field(json, "backup_osccal");
    read_rows(json, "eeprom", 0xFF, target.eeprom);
    read_rows(json, "program", 0xFFFF, target.program);
    return target;
}

// Why a file is refused unread, "" where it may be read.
std::string refusal(const std::filesystem::path& file) {
    namespace fs = std::filesystem;
    std::error_code error;
    const auto status = fs::status(file, error);
    if (!fs::exists(status)) return "there is no such file";
    if (fs::is_directory(status)) return "it is a folder";
    if (!fs::is_regular_file(status)) return "it is a device or a pipe, not a file";
    if (fs::file_size(file, error) > kMostBytes) return "it is larger than 16 MB";
    return {};
}

}  // namespace

Json to_json(const SimulatedTarget& target) {
    Json codes = Json::array();
    for (const auto& code : target.erase_codes) codes.push_back(erasure(code));
    const auto* core = std::ranges::find(kCores, target.core, &decltype(kCores)::value_type::first);
    Json json{{"device", target.name}, {"identity", word_text(target.identity)}};
    json["id"] = words(target.id);
    json["config"] = words(target.config);
    json["calibration"] = words(target.calibration);
    if (target.backup_osccal) json["backup_osccal"] = word_text(*target.backup_osccal);
    json["eeprom"] = rows(target.eeprom, 2);
    json["program"] = rows(target.program, 4);
    json["part"] = Json{{"core", core->second},
                        {"one_time", target.memory == ProgramMemory::OneTime},
                        {"algorithm", std::string(1, target.algorithm)},
                        {"blank_word", word_text(target.blank_word)},
                        {"program_words", target.program.size()},
                        {"eeprom_cells", target.eeprom.size()},
                        {"protect_mask", word_text(target.protect_mask)}};
    if (target.osccal_word) json["part"]["osccal_word"] = true;
    if (target.chip_erase_only) json["part"]["chip_erase_only"] = true;
    json["part"]["config_blank"] = words(target.config_blank);
    json["part"]["config_mask"] = words(target.config_mask);
    json["part"]["config_force"] = words(target.config_force);
    json["part"]["erase_codes"] = std::move(codes);
    return json;
}

TargetReading read_target(std::string_view text) {
    try {
        return {target_of(Json::parse(text)), {}};
    } catch (const Json::exception& error) {
        return {std::nullopt, fmt::format("not a whole JSON text: {}", error.what())};
    } catch (const Damaged& error) {
        return {std::nullopt, error.what()};
    }
}

TargetReading load_target(const std::filesystem::path& file) {
    if (auto reason = refusal(file); !reason.empty()) return {std::nullopt, std::move(reason)};
    std::error_code error;
    std::string text(static_cast<std::size_t>(std::filesystem::file_size(file, error)), '\0');
    std::ifstream stream{file, std::ios::binary};
    if (error || !stream.read(text.data(), static_cast<std::streamsize>(text.size())))
        return {std::nullopt, "it can't be read"};
    return read_target(text);
}

std::string target_text(const SimulatedTarget& target) { return to_json(target).dump(1) + '\n'; }

}  // namespace quillon

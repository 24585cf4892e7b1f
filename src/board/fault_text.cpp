// SPDX-License-Identifier: MIT
// The text notation of a fault: [PLACE/]NAME[:VALUE...].
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <utility>

#include "board/faults.h"

namespace quillon {
namespace {

using Kind = Fault::Kind;

enum class Values : std::uint8_t { None, Number, NumberAndByte, TimeAndNumber, Text };

struct Name {
    std::string_view name;
    Kind kind;
    Values values;
    std::string_view form;
    std::size_t least = 0;  // the smallest number that makes sense
};

constexpr std::array kNames{
    Name{"drop", Kind::Drop, Values::Number, "drop:N", 1},
    Name{"alter", Kind::Alter, Values::NumberAndByte, "alter:N[:BYTE]", 1},
    Name{"add", Kind::Add, Values::NumberAndByte, "add:N[:BYTE]", 1},
    Name{"late", Kind::Late, Values::TimeAndNumber, "late:TIME[:N]", 1},
    Name{"no-end-code", Kind::NoEndCode, Values::None, "no-end-code"},
    Name{"abort-write", Kind::AbortWrite, Values::Number, "abort-write:N"},
    Name{"silent-after", Kind::SilentAfter, Values::Number, "silent-after:N"},
    Name{"unplug-after", Kind::UnplugAfter, Values::Number, "unplug-after:N"},
    Name{"ignore-bursts", Kind::IgnoreBursts, Values::Number, "ignore-bursts:N", 1},
    Name{"identity", Kind::Identity, Values::Text, "identity:TEXT"},
    Name{"empty-socket", Kind::EmptySocket, Values::None, "empty-socket"},
    Name{"wrong-part", Kind::WrongPart, Values::Number, "wrong-part:WORD"},
    Name{"stuck-cell", Kind::StuckCell, Values::Number, "stuck-cell:ADDRESS"},
    Name{"stuck-eeprom", Kind::StuckEeprom, Values::Number, "stuck-eeprom:ADDRESS"},
    Name{"stuck-config", Kind::StuckConfig, Values::Number, "stuck-config:WORD"},
};
constexpr std::size_t kMostNumber = 0xFFFFFF;

std::optional<std::size_t> number(std::string_view text) {
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        base = 16;
        text.remove_prefix(2);
    }
    std::size_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (error != std::errc{} || end != text.data() + text.size() || value > kMostNumber)
        return std::nullopt;
    return value;
}

std::optional<Host::Time> time(std::string_view text) {
    using namespace std::chrono_literals;
    constexpr std::array<std::pair<std::string_view, Host::Time>, 3> kUnits{
        {{"us", 1us}, {"ms", 1ms}, {"s", 1s}}};
    for (const auto& [unit, length] : kUnits) {
        if (!text.ends_with(unit)) continue;
        const auto count = number(text.substr(0, text.size() - unit.size()));
        if (count) return length * static_cast<std::int64_t>(*count);
    }
    return std::nullopt;
}

// Cuts the text at its first colon; the second half is empty where there is none.
std::pair<std::string_view, std::string_view> cut(std::string_view text) {
    const auto colon = text.find(':');
    if (colon == std::string_view::npos) return {text, {}};
    return {text.substr(0, colon), text.substr(colon + 1)};
}

bool read_byte(std::string_view text, Fault& fault) {
    const auto value = number(text);
    if (!value || *value > 0xFF) return false;
    fault.value = static_cast<std::uint8_t>(*value);
    return true;
}

bool read_number(std::string_view text, const Name& name, Fault& fault) {
    const auto value = number(text);
    if (!value || *value < name.least) return false;
    fault.n = *value;
    return true;
}

bool read_values(std::string_view values, const Name& name, Fault& fault) {
    const auto [first, second] = cut(values);
    switch (name.values) {
        case Values::None:
            return values.empty();
        case Values::Number:
            return read_number(values, name, fault);
        case Values::NumberAndByte:
            return read_number(first, name, fault) && (second.empty() || read_byte(second, fault));
        case Values::TimeAndNumber: {
            const auto length = time(first);
            if (!length) return false;
            fault.time = *length;
            return second.empty() || read_number(second, name, fault);
        }
        case Values::Text:
            fault.text = values;
            return !values.empty();
    }
    return false;
}

// Only a slash before the name's colon ends a place. One after it belongs to the value.
std::string_view take_place(std::string_view& text) {
    const auto slash = text.find('/');
    if (slash == std::string_view::npos || slash > text.find(':')) return {};
    const auto place = text.substr(0, slash);
    text.remove_prefix(slash + 1);
    return place;
}

std::string all_forms() {
    std::string forms;
    for (const auto& name : kNames)
        forms += fmt::format("{}{}", forms.empty() ? "" : ", ", name.form);
    return forms;
}

}  // namespace

FaultReading read_fault(std::string_view text) {
    std::string_view rest = text;
    Fault fault;
    fault.place = take_place(rest);
    const auto [word, values] = cut(rest);
    const auto found = std::ranges::find(kNames, word, &Name::name);
    if (found == kNames.end())
        return {std::nullopt, fmt::format("\"{}\" is no fault. Faults: {}", text, all_forms())};
    fault.kind = found->kind;
    if (!read_values(values, *found, fault))
        return {std::nullopt, fmt::format("\"{}\": the fault's form is {}", text, found->form)};
    if (fault.kind == Kind::WrongPart && fault.n > 0xFFFF)
        return {std::nullopt, fmt::format("\"{}\": a word has four digits at most", text)};
    return {std::move(fault), {}};
}

}  // namespace quillon

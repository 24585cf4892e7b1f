// SPDX-License-Identifier: MIT
// The command line of the window: one item with a HEX file's path and its operands.
//
// Blanks belong to an item, so that a path with blanks needs no quotes. An operand begins with "/",
// as a folder may: the path is therefore found first, by its extension.
#include <fmt/format.h>
#include <fmt/ranges.h>

#include "app/text.h"
#include "run/start_up.h"

namespace quillon {

namespace {

constexpr std::string_view kExtension = ".HEX";

// Bytes of the UTF-8 character at the front, none of an empty text.
std::size_t character_length(std::string_view text) {
    std::size_t length = text.empty() ? 0 : 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
        ++length;
    return length;
}

}  // namespace

std::vector<std::string> GetCommandLine(std::string_view tail, std::size_t most) {
    std::vector<std::string> items;
    bool inside = false;
    for (const char character : tail) {
        if (character == '\t') {
            inside = false;
            continue;
        }
        if (!inside) {
            if (items.size() == most) break;
            items.emplace_back();
            inside = true;
        }
        items.back() += character;
    }
    return items;
}

std::string command_tail(std::span<const std::string> arguments) {
    return fmt::format("{}", fmt::join(arguments, " "));
}

HexOperands hex_operands(std::string_view item) {
    const auto extension = item.find(kExtension);
    if (extension == std::string_view::npos) return {};
    std::size_t cut = extension + kExtension.size();
    cut += character_length(item.substr(cut));

    HexOperands operands{.CmdHexPath = trim(item.substr(0, cut)), .CmdArg2 = {}, .CmdArg3 = {}};
    int slashes = 0;
    for (const char character : item.substr(cut)) {
        if (character == '"') continue;
        if (character == '/')
            ++slashes;
        else if (slashes == 1)
            operands.CmdArg2 += character;
        else if (slashes == 2)
            operands.CmdArg3 += character;
    }
    operands.CmdArg2 = trim(operands.CmdArg2);
    operands.CmdArg3 = trim(operands.CmdArg3);
    return operands;
}

}  // namespace quillon

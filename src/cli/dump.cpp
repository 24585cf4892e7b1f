// SPDX-License-Identifier: MIT
#include "cli/dump.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <span>

#include "app/text.h"
#include "image/fill.h"

namespace quillon::cli {

namespace {

constexpr std::size_t kCfgIdBytes = 34;
constexpr auto kCfgBytes18 = std::size_t{2} * kConfigWords;

// The first bytes of a memory. A size from the catalogue may be too large and is limited.
std::string head(std::span<const std::uint8_t> memory, std::int64_t bytes) {
    const auto count = std::clamp<std::int64_t>(bytes, 0, std::ssize(memory));
    return hex_bytes(memory.first(static_cast<std::size_t>(count)));
}

}  // namespace

std::string dump(const Session& session, const MainForm& form) {
    const std::int64_t cell = is_pic18(session.PgmType) ? 1 : 2;
    const std::span words{session.ConfigWord};
    const nlohmann::ordered_json image{
        {"device", session.DeviceName},
        {"PgmType", session.PgmType.text()},
        {"PgmWords", session.PgmWords},
        {"EepBytes", session.EepBytes},
        {"PgmWordsCat", session.PgmWordsCat},
        {"EepBytesCat", session.EepBytesCat},
        {"PgmMem", head(session.PgmMem, std::int64_t{2} * session.PgmWords)},
        {"EepMem", head(session.EepMem, cell * session.EepBytes)},
        {"CfgIdMem", head(session.CfgIdMem, kCfgIdBytes)},
        {"IdBytes18", hex_bytes(session.IdBytes18)},
        {"CfgBytes18", head(session.CfgBytes18, kCfgBytes18)},
        {"ConfigWord", words.subspan<1>()},
        {"IdText", session.IdText},
        {"Text_ID", form.Text_ID.Text.get()},
        {"CheckSum", ProgramCheckSum(session)},
        {"LoadResult", session.LoadResult},
    };
    return image.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + '\n';
}

}  // namespace quillon::cli

// SPDX-License-Identifier: MIT
#include "hex/id_behind_program.h"

#include "app/text.h"
#include "image/fill.h"

namespace quillon {

IdBehindProgram::IdBehindProgram(const DeviceRecord& device) {
    if (is_12bit(device.PgmType) && device.PgmWords > 0)
        first_ = std::size_t{2} * static_cast<std::size_t>(device.PgmWords);
}

bool IdBehindProgram::holds(std::size_t address) const {
    return first_ && address >= *first_ && address < *first_ + kBytes;
}

void IdBehindProgram::note(std::size_t address, std::uint8_t high, std::uint8_t low) {
    if (!holds(address)) return;
    words_[(address - *first_) / 2] = Word{.high = high, .low = low};
    noted_ = true;
}

void IdBehindProgram::take(Session& session) const {
    if (!noted_) return;
    session.IdText.clear();
    for (std::size_t i = 0; i < words_.size(); ++i) {
        auto& low = session.CfgIdMem[2 * i + 1];
        if (words_[i]) {
            session.CfgIdMem[2 * i] = words_[i]->high;
            low = words_[i]->low;
        }
        session.IdText += hex(low & 0x0FU, 1);
    }
}

}  // namespace quillon

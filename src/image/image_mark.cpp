// SPDX-License-Identifier: MIT
#include "image/image_mark.h"

#include <algorithm>
#include <cstddef>
#include <span>

#include "image/fill.h"

namespace quillon {

namespace {

// Bytes of ID and configuration words in the files of all parts but the PIC18.
constexpr std::size_t kAreaBytes = 32;

void append(std::vector<std::uint8_t>& bytes, std::span<const std::uint8_t> more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

void append_pic18(std::vector<std::uint8_t>& bytes, const Session& session) {
    const auto cells = std::clamp<std::ptrdiff_t>(session.EepBytes, 0, std::ssize(session.EepMem));
    append(bytes, std::span{session.EepMem}.first(static_cast<std::size_t>(cells)));
    append(bytes, session.IdBytes18);
    for (const auto word : session.ConfigWord) {
        bytes.push_back(static_cast<std::uint8_t>(word >> 8));
        bytes.push_back(static_cast<std::uint8_t>(word));
    }
}

// The file holds only the second of a cell's two bytes.
void append_word_image(std::vector<std::uint8_t>& bytes, const Session& session) {
    for (std::size_t at = 1; at < eeprom_span(session); at += 2)
        bytes.push_back(session.EepMem[at]);
    append(bytes, std::span{session.CfgIdMem}.first(kAreaBytes));
}

}  // namespace

ImageMark::ImageMark(const Session& session) : DeviceName_{session.DeviceName} {
    append(bytes_, std::span{session.PgmMem}.first(program_span(session)));
    if (is_pic18_flash(session.PgmType))
        append_pic18(bytes_, session);
    else
        append_word_image(bytes_, session);
}

bool ImageMark::is_of(const Session& session) const {
    return has_device() && DeviceName_ == session.DeviceName && bytes_ == ImageMark{session}.bytes_;
}

}  // namespace quillon

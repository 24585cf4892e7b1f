// SPDX-License-Identifier: MIT
// Blank and zero values of the memory image by programming type, parity and check sum.
//
// The fills touch the spans that the device's sizes cover; what lies beyond keeps its old content.
// "LDR418" is in no group on purpose: the fills leave its arrays as they are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "app/session.h"

namespace quillon {

// Bytes of PgmMem that the device's words take, and of EepMem that its cells take at two bytes a
// cell. Never below 0 and never beyond the arrays, as a catalogue may ask for more than they hold.
std::size_t program_span(const Session& session);
std::size_t eeprom_span(const Session& session);

void FillProgramOnes(Session& session);
void FillProgramZeros(Session& session);
void FillEepromOnes(Session& session);
void FillEepromZeros(Session& session);
void FillIdOnes(Session& session);
void FillIdZeros(Session& session);

// Sets the parity bits of one "EPROM2" word: bit 6 of the high byte even parity over the word's
// even bits, bit 7 odd parity over its odd ones.
void ParityFix(std::uint8_t& high, std::uint8_t& low);

// Sum of all program words modulo 0x10000, four upper-case digits. PIC18 pairs are read swapped.
std::string ProgramCheckSum(const Session& session);

}  // namespace quillon

// SPDX-License-Identifier: MIT
// The values that live from start to exit, under the names that the system gives them.
//
// Plain data: behaviour stays with the classes that own a job. One object per run, passed by
// reference. It is large (the image alone is 2 MB), so it lives on the heap or in main's frame.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "app/token.h"
#include "parts/pgm_type.h"

namespace quillon {

// Configuration word n is at index n; words 1 to 7 are in use.
inline constexpr int kConfigWords = 7;
using PerConfigWord = std::array<std::uint32_t, kConfigWords + 1>;

// The selected device as its catalogue block describes it.
struct DeviceRecord {
    std::string DeviceName;  // "" while none is selected
    PgmTypeToken PgmType;    // catalogue token, such as "FLASH8"
    std::string PowerMode;   // "VPP" or "VDD": the supply that rises first
    std::string PackageKey;
    std::string Jp2Key;
    std::string CalibText;    // "retlw 0x80", "" for a device with no calibration word
    std::string CommentText;  // begins with a blank
    double FirmRequired = 0;
    std::uint8_t VddVppDelay = 0;  // milliseconds
    std::uint8_t WriteBufBytes = 0;

    std::int32_t PgmWords = 0;  // words; PIC18: half the byte count
    std::int32_t EepBytes = 0;  // cells, 0 for none
    // The same sizes, but after a PIC18 file load the used ones.
    std::int32_t PgmWordsCat = 0;
    std::int32_t EepBytesCat = 0;

    std::uint32_t CpMask = 0;  // protection bits in word 1, all ones when not protected
    std::uint32_t CpMaskCf5 = 0;
    std::uint32_t DevIdMask = 0;
    std::uint32_t DevIdExpect = 0;

    using EraseRecord = std::array<std::uint8_t, 6>;  // two words of three bytes, as sent
    EraseRecord EraseChip18{};
    EraseRecord EraseConfig18{};
    EraseRecord EraseEeprom18{};
    std::array<EraseRecord, 9> EraseBlock18{};  // 0: the boot block

    PerConfigWord ConfigDefault{};
    PerConfigWord ConfigMask{};   // bits that may be 1
    PerConfigWord ConfigForce{};  // bits that are always 1
    PerConfigWord ConfigWidth{};  // all bits of the word
    std::array<bool, kConfigWords + 1> ConfigPresent{};
};

// The PC side of what belongs in the target.
struct MemoryImage {
    static constexpr std::size_t kPgmBytes = 0x200000;

    // Two bytes a word. 12-bit and 14-bit types: high byte first, so that the index is the word's
    // byte address in a HEX file.
    std::vector<std::uint8_t> PgmMem = std::vector<std::uint8_t>(kPgmBytes);
    // 14-bit types: two bytes a cell, 0x3F and the data. PIC18: one byte a cell.
    std::array<std::uint8_t, 2048> EepMem{};
    // Bytes 0 to 7 the four ID words, 14 and 15 configuration word 1, 12+2n and 13+2n word n; all
    // high byte first. The order of the "c" area on the wire.
    std::array<std::uint8_t, 257> CfgIdMem{};
    // CfgIdMem as it will be written: with the device's own words as they were read.
    std::array<std::uint8_t, 257> CfgIdVerify{};
    PerConfigWord ConfigWord{};
    std::array<std::uint8_t, 8> IdBytes18{};
    std::array<std::uint8_t, 256> CfgBytes18{};  // word n low byte first, from 2(n-1)
    std::string IdText;                          // ID digits as in Text_ID
};

// The factory's calibration as it was last read from the device, or taken from the form.
struct Calibration {
    std::uint8_t CalibHi = 0;  // the instruction in the last word of program memory
    std::uint8_t CalibLo = 0;
    std::uint8_t CalibBg = 0;  // band gap, bits 13 and 12 of configuration word 1: 0 to 3
    // Read in the present operation.
    bool word_known = false;
    bool bandgap_known = false;
    // Then erased, and not yet written back.
    bool word_at_risk = false;
    bool bandgap_at_risk = false;
};

struct Counters {
    std::int32_t TryCount = 0;  // runs that reached their write stage
    std::int32_t PassCount = 0;
    std::int32_t FailCount = 0;
};

// The results of the last operation.
struct OperationResult {
    std::chrono::nanoseconds OpStart{};  // the host's clock when the operation began
    Token Status = Token::None;
    Token ResultPgm = Token::None;
    Token ResultEep = Token::None;
    Token ResultCfg = Token::None;
    std::string ResultAll;  // the three joined
    Protection CodeProtect;
    std::string FailDetail;  // the last result's text, head of a log line
    std::string LoadResult;  // "OK", "NG", "" while a file is loading
    bool ExtendPgmOnly = false;
    bool ExtendCfgToo = false;
};

struct LinkValues {
    int ComNo = 0;                // serial port number, 0 for none
    bool WriterFound = false;     // the last identification succeeded
    std::string FirmVersionText;  // 16 characters of the reply to "?"
    std::string FirmwareText;     // the same as of the last Writer_Find
    double FirmVersion = 0;
    bool BoardUnasked = false;  // the run began with no search, and nothing was sent since
};

// Text files and folders. Paths use the host's separator; folders end in one.
struct Places {
    std::string AppPath;
    std::string TempDir;
    std::string CatalogueFile;  // device6.ini, in AppPath unless named otherwise
    std::string MainTitle;
    std::string CommandLine;
    std::string CmdHexPath;
    std::string CmdArg2;
    std::string CmdArg3;
    std::string HexFolder;
    std::string HexFilePath;    // the HEX file at hand
    std::string LoadedHexPath;  // the one at the last open: last field of a log line
    std::string PickedDevice;
    std::string AsmToolPath;
};

struct Modes {
    bool ConfigFromFile = false;   // the words came from outside: masks aren't applied
    bool DeviceEventLock = false;  // a load is changing the device
    bool FirmChecked = false;      // the firmware verdict has been due once
    int FormAnswer = 0;            // of the last small question form
};

struct CatalogueState {
    bool CatError = false;
    std::string CatErrorText;
    std::string CatVersion;
    std::vector<std::string> DeviceList;  // in file order
};

struct Session : DeviceRecord,
                 MemoryImage,
                 Calibration,
                 Counters,
                 OperationResult,
                 LinkValues,
                 Places,
                 Modes,
                 CatalogueState {
    Session() = default;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
};

}  // namespace quillon

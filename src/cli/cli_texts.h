// SPDX-License-Identifier: MIT
// The command line's own texts, in English. The flows' messages are in the product's language.
#pragma once

#include <string_view>

namespace quillon::cli::text {

inline constexpr std::string_view kProgram = "quillon-cli";
inline constexpr std::string_view kDescription =
    "Programs PIC microcontrollers with the board on a serial port.";

inline constexpr std::string_view kFooter =
    R"(--set takes effect after the device is selected and the file is loaded:
  mnuBlankSkip=1, Chk_12F_CalibData_Select=0   check boxes and checked menu items
  Text_ID=1234, Text_Calib_Data=80             text boxes
  Combo_FCAL_91X=3                             lists: an entry's text or its index
  PowerMode=VPP, VddVppDelay=10                order of the supplies, delay in ms
  CONFIG1=3F71, CONFIG1=WDTE:ON                a word in hexadecimal, or one of its fields
These take effect before the file is loaded:
  HexUpperAddress=1                            PIC12F1xxx, PIC16F1xxx: full addresses
  HexFileCheck=0                               turns the file check off

--fault, such as drop:5, silent-after:3, we8/no-end-code, wrong-part:0x0E20, stuck-cell:7.

--answer takes overwrite, mismatch, firmware, replace and calibration = ok|cancel,
  power = vpp|vdd|close.
  A question without an answer is asked on the terminal. Without a terminal it is cancelled.

Exit status: 0 success, 1 ran and failed, 2 usage or unknown device, 3 no board or
  link failed, 4 cancelled or interrupted.)";

inline constexpr std::string_view kNeedsSimulation =
    "--socket, --sim-baud and --fault need --port sim or the simulate command";

inline constexpr std::string_view kNoCommand =
    "a command is required\nRun with --help for more information.\n";
inline constexpr std::string_view kUnknownCommand =
    "no command named '{}'\nRun with --help for more information.\n";
inline constexpr std::string_view kNoSecondWord =
    "{} needs one of: {}\nRun with --help for more information.\n";
inline constexpr std::string_view kUnknownSecondWord =
    "{} has no '{}'; it needs one of: {}\nRun with --help for more information.\n";
inline constexpr std::string_view kNoCalibrationValue =
    "calib write needs its value: --set Text_Calib_Data=XX";
inline constexpr std::string_view kNoCalibrationEntry =
    "with Chk_12F_CalibData_Select=0 this device needs its value: --set Text_Calib_Data=XX";
inline constexpr std::string_view kUnknownDevice = "the catalogue holds no device named '{}'";
inline constexpr std::string_view kNoDevice =
    "no device is selected: name one with --device (quillon-cli devices lists them)";
inline constexpr std::string_view kNoCatalogue = "can't read the catalogue {}";
inline constexpr std::string_view kNoWorkFolder = "can't work in {}";
inline constexpr std::string_view kInterrupted = "interrupted before the operation began";
inline constexpr std::string_view kOutOfTime = "the deadline passed before the operation began";
inline constexpr std::string_view kStandardOutput = "standard output";
inline constexpr std::string_view kNoData = "{} holds no data record";
inline constexpr std::string_view kNoProgramSide =
    "{} holds no data for program memory, configuration or ID";
inline constexpr std::string_view kNoEeprom = "{} holds no data for the EEPROM of {}";
inline constexpr std::string_view kSameFile = "{} and {} name the same file: {}";
// Shown among the flow's messages, so in its language. "red" colours it.
inline constexpr std::string_view kOtherDevice =
    "redファイルの指定により、デバイスは {} になりました（--device {} ではありません）。";
inline constexpr std::string_view kCantWrite = "can't write {}: {}";

inline constexpr std::string_view kNoControl = "--set: no control named '{}'";
inline constexpr std::string_view kNotSettable = "--set: '{}' is not a control with a value";
inline constexpr std::string_view kUseDevice = "--set: '{}' is chosen by --device";
inline constexpr std::string_view kBadValue = "--set {}: '{}' is not {}";
inline constexpr std::string_view kNoConfigWord = "--set {}: {} has no such configuration word";
inline constexpr std::string_view kNoConfigField = "--set {}: the word has no field '{}'";
inline constexpr std::string_view kNoConfigOption = "--set {}: field '{}' has no option '{}'";

inline constexpr std::string_view kUnplugged = "the simulated board has been unplugged";
inline constexpr std::string_view kBadSocket = "{} doesn't hold a simulated target: {}";

}  // namespace quillon::cli::text

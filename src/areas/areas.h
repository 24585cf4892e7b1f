// SPDX-License-Identifier: MIT
// One routine for each memory area and operation: what a whole operation is composed of.
//
// Each shows its status line, runs one exchange and returns a token. None opens or closes the port,
// and none retries.
#pragma once

#include <optional>
#include <string>

#include "app/token.h"
#include "areas/identity_check.h"

namespace quillon {

// What a configuration verify found in the device: both texts are "OK" where all agreed, and empty
// where nothing could be read.
struct ConfigFound {
    std::string config{};
    std::string id{};
};

// What a blank check says beyond its tokens; texts are empty where there is nothing to say.
struct BlankNotes {
    std::string status{};               // behind the verdict
    std::optional<Token> oscillator{};  // whether the oscillator's field is blank
    std::string report{};               // a line of the report
};

class Areas {
  public:
    virtual ~Areas() = default;

    // A blank and a not blank area (YB and NB, or OK and NG, as the family has it), ER; Absent for
    // an area that the device doesn't have. Blank_Cfg, Read_Cfg and Verify_Cfg also set the
    // session's CodeProtect.
    virtual Token Blank_Cfg() = 0;
    virtual Token Blank_Pgm() = 0;
    virtual Token Blank_Eep() = 0;
    // OK, NG; Absent as above.
    virtual Token Write_Cfg() = 0;
    virtual Token Write_Pgm() = 0;
    virtual Token Write_Eep() = 0;
    virtual SocketVerdict Socket_Check() = 0;
    virtual Token Read_Cfg() = 0;
    virtual Token Read_Pgm() = 0;
    virtual Token Read_Eep() = 0;
    virtual Token Verify_Cfg() = 0;
    // As the verify operation compares: some families take the ID words in here only.
    virtual Token Verify_Cfg_Id() { return Verify_Cfg(); }
    virtual Token Verify_Pgm() = 0;
    virtual Token Verify_Eep() = 0;
    // OK, ER.
    virtual Token Chip_Erase() = 0;
    virtual Token Pgm_Erase() = 0;
    virtual Token Eep_Erase() = 0;

    // Reads the configuration area before it is written, for a family that writes the device's own
    // words back. OK, NG.
    virtual Token Cfg_Patch_Read() { return Token::Absent; }

    // The factory's calibration: an instruction in the last word of program memory, and the band
    // gap in the configuration word. A family without them has nothing to do. OK, NG, ER.
    //
    // Whether the fields hold a value, where the user has decided that they are written.
    virtual Token Calibration_Entry() { return Token::Absent; }
    // Whether the word that was read can be the factory's, where it is to be kept.
    virtual Token Calibration_Check() { return Token::Absent; }
    virtual Token Word_Read() { return Token::Absent; }
    virtual Token Word_Write() { return Token::Absent; }
    virtual Token Cfg_Read_12F6() { return Token::Absent; }
    virtual Token Cfg_Write_12F6() { return Token::Absent; }
    // Word_Write, unless the device had no calibration that could be kept.
    virtual Token Word_Restore() { return Token::Absent; }
    // Puts the calibration that the device shall have into the image, before the image is written.
    virtual Token Take_Calibration() = 0;
    // Shows what was read, before it is erased.
    virtual Token Show_Kept_Calibration() { return Token::Absent; }
    // The same for an erase: what Word_Write and Cfg_Write_12F6 will write back.
    virtual Token Take_Erase_Calibration() { return Token::Absent; }
    // Shows the word that the verify has read, behind the one that was read before.
    virtual Token Show_Calibration() { return Token::Absent; }

    // True if Read_Pgm, Read_Eep and Read_Cfg have just read nothing but blank values.
    virtual bool read_was_blank() const = 0;
    // Of the last Blank_Pgm and Blank_Cfg.
    virtual BlankNotes blank_notes() const { return {}; }
    // A further line for the report of a verify.
    virtual std::string verify_note() const { return {}; }
    // Shown behind the verdict on a programmed part whose calibration word can't be one.
    virtual std::string calibration_warning() const { return {}; }
    // Of the last Verify_Cfg.
    const ConfigFound& config_found() const { return config_found_; }

  protected:
    ConfigFound config_found_;
};

}  // namespace quillon

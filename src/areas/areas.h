// SPDX-License-Identifier: MIT
// One routine for each memory area and operation: what a whole operation is composed of.
//
// Each shows its status line, runs one exchange and returns a token. None opens or closes the port,
// and none retries.
#pragma once

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

class Areas {
  public:
    virtual ~Areas() = default;

    // YB, NB, ER; Absent for an area that the device doesn't have. Blank_Cfg, Read_Cfg and
    // Verify_Cfg also set the session's CodeProtect.
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
    virtual Token Verify_Pgm() = 0;
    virtual Token Verify_Eep() = 0;
    // OK, ER.
    virtual Token Chip_Erase() = 0;
    virtual Token Pgm_Erase() = 0;
    virtual Token Eep_Erase() = 0;

    // True if Read_Pgm, Read_Eep and Read_Cfg have just read nothing but blank values.
    virtual bool read_was_blank() const = 0;
    // Of the last Verify_Cfg.
    const ConfigFound& config_found() const { return config_found_; }

  protected:
    ConfigFound config_found_;
};

}  // namespace quillon

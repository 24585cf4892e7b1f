// SPDX-License-Identifier: MIT
// Loads a HEX text for the selected device and shows the result.
#pragma once

#include <string_view>

#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "catalogue/config_model.h"
#include "hex/hex_items.h"
#include "hex/hex_zones.h"
#include "image/views.h"

namespace quillon {

// How the user wants the files of the device to be read and written: HexUpperAddress, for the parts
// that have such addresses.
HexAddresses hex_addresses(const MainForm& form, std::string_view DeviceName);

class HexLoader {
  public:
    HexLoader(Session& session, MainForm& form, AboutForm& about, Messages& messages,
              MemoryViews& views, ConfigModel& config)
        : session_{session},
          form_{form},
          about_{about},
          messages_{messages},
          views_{views},
          config_{config} {}

    // Runs the loader of the selected type. LoadResult is "" meanwhile, then "OK" or "NG". Leaves
    // ConfigFromFile set where the text supplied configuration words: the caller clears it once the
    // panel is refreshed. The file check's findings come last, on a line of their own.
    HexSides load(std::string_view text);
    // Text_ID from the low digits of the eight PIC18 ID bytes.
    void show_pic18_id();

  private:
    HexAddresses addresses() const;
    HexLoad load_words(std::string_view text);
    HexLoad load_pic18_text(std::string_view text);
    void show_config(const HexLoad& load);
    void show_id_words();
    std::string pic18_report(const HexLoad& load) const;
    void report(const HexLoad& load, std::string_view loaded);
    void report_check(std::string_view text, const HexLoad& load);

    Session& session_;
    MainForm& form_;
    AboutForm& about_;
    Messages& messages_;
    MemoryViews& views_;
    ConfigModel& config_;
};

}  // namespace quillon

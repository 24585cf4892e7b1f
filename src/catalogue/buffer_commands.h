// SPDX-License-Identifier: MIT
// The two menu commands that fill the whole image: all ones (the clear) and all zeros.
#pragma once

#include <cstdint>
#include <string>

#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "catalogue/config_model.h"
#include "catalogue/device_check.h"
#include "image/views.h"

namespace quillon {

class BufferCommands {
  public:
    BufferCommands(Session& session, MainForm& form, Messages& messages, MemoryViews& views,
                   ConfigModel& config, DeviceCheck& device_check)
        : session_{session},
          form_{form},
          messages_{messages},
          views_{views},
          config_{config},
          device_check_{device_check} {}

    // Both end with Mcu_Selected_Check's message where no device is selected.
    void mnuPcBufferMemoryClear();
    void mnuPcBufferMemory_0();  // warns if the words shown stay though zeros would be written

  private:
    bool begin();
    void show_id(const std::string& digits, std::uint8_t byte18);
    void show_four_words(const std::string& digits);

    Session& session_;
    MainForm& form_;
    Messages& messages_;
    MemoryViews& views_;
    ConfigModel& config_;
    DeviceCheck& device_check_;
};

}  // namespace quillon

// SPDX-License-Identifier: MIT
#include "run/run.h"

#include "run/start_up_texts.h"

namespace quillon {

Run::Run(SettingsStore& store, Host& host_, SerialPort& port_, Dialogs& dialogs_)
    : host{host_},
      port{port_},
      dialogs{dialogs_},
      settings{store},
      messages{form},
      log{session, form, host, messages},
      link{session, form, settings, host, port, dialogs, messages},
      option{option_form, session, settings, port, dialogs, messages, link},
      device_select{device_select_form, session, form},
      views{session, form, host},
      id_entry{session, form, views},
      catalogue{session, form, board, host, dialogs},
      config{session, form, messages, views, catalogue},
      device_check{session, form, dialogs, messages},
      buffer{session, form, messages, views, config, device_check},
      selection{session,  form,         board,     extend_form, settings, dialogs,
                messages, device_check, catalogue, config,      buffer},
      files{session,  form,  about,  settings, host,     dialogs,
            messages, views, config, buffer,   selection},
      context{session, form, host, port, dialogs, messages, log, views, config, selection, link},
      frame{context},
      flows{context, frame},
      extend{context, frame, extend_form, settings},
      stop{stop_form, form, flows},
      menu{*this} {
    form.Combo_device.Click = [this] { selection.Combo_device_Click(); };
}

bool search_board(Run& run) {
    try {
        run.link.Writer_Find();
        return true;
    } catch (const Abandoned& abandoned) {
        run.port.close();
        if (abandoned.reason != Abandoned::Reason::PortLost) return false;
        run.link.show_no_board();
        run.messages.ShowMessage(start_up_text::kPortLost);
        return true;
    }
}

}  // namespace quillon

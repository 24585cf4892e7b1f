// SPDX-License-Identifier: MIT
// The questions of a run as boxes and forms on the screen. Each runs an event loop until it is
// answered, so the window behind it is still painted.
#pragma once

#include <QString>
#include <functional>

#include "app/dialogs.h"
#include "forms/frmOption.h"

class QWidget;

namespace quillon {

struct Run;

class QtDialogs : public Dialogs {
  public:
    // Boxes need neither. The forms need the run, which is made after its dialogs.
    void attach(Run& run, QWidget* owner, frmOption::Behind behind = {});

    BoxAnswer box(const MessageBox& box) override;
    std::optional<std::filesystem::path> file(const FileDialog& dialog) override;
    int frmHint(const HintQuestion& question) override;
    int Frm_VPP_DECIDE(const std::string& Label1) override;
    void frmOption() override;
    void frmDeviceSelect() override;

  private:
    QWidget* owner() const;
    std::filesystem::path start_folder(const FileDialog& dialog) const;

    Run* run_ = nullptr;
    QWidget* owner_ = nullptr;
    frmOption::Behind behind_;
};

// Converts a filter such as "Hexファイル|*.HEX|全てのファイル|*.*|" for Qt's file dialog. Patterns
// are given in both cases, and "*.*" means every file.
QString qt_filter(const std::string& filter);

}  // namespace quillon

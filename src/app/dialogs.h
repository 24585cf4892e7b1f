// SPDX-License-Identifier: MIT
// The questions that a flow asks: message boxes, file dialogs and the small modal forms.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace quillon {

enum class BoxIcon : std::uint8_t { None, Critical, Question, Warning, Information };
enum class BoxButtons : std::uint8_t { Ok, OkCancel, YesNo };
enum class BoxAnswer : std::uint8_t { Ok, Cancel, Yes, No };

struct MessageBox {
    std::string title{};
    std::string text{};
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::Ok;
    BoxAnswer default_answer = BoxAnswer::Ok;  // the button that Return presses
    // The question's name where a script may answer it beforehand ("mismatch"), else empty.
    std::string name{};
};

struct FileDialog {
    enum class Kind : std::uint8_t { Open, Save };
    Kind kind = Kind::Open;
    std::filesystem::path folder{};
    std::string filter{};  // "Hexファイル|*.HEX|全てのファイル|*.*|"
    std::string default_extension{};
    std::string initial_name{};
};

// Two lines and a hint: the overwrite question.
struct HintQuestion {
    std::string line1{};
    std::string line2{};
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    virtual BoxAnswer box(const MessageBox& box) = 0;
    // The chosen path, nothing where the user cancelled.
    virtual std::optional<std::filesystem::path> file(const FileDialog& dialog) = 0;
    // frmHint; returns FormAnswer: 1 OK, 2 cancel. The hint button opens the document and leaves
    // the question open.
    virtual int frmHint(const HintQuestion& question) = 0;
    // Frm_VPP_DECIDE with the text of its Label1; returns FormAnswer: 1 VPP, 2 VDD, 0 closed.
    virtual int Frm_VPP_DECIDE(const std::string& Label1) = 0;
    // frmOption, the port dialog, run to its end.
    virtual void frmOption() = 0;
    // frmDeviceSelect, run to its end: the device question for a file of the command line.
    virtual void frmDeviceSelect() = 0;
};

}  // namespace quillon

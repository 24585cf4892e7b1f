// SPDX-License-Identifier: MIT
// The steps of the Save command in their order.
#include <string>
#include <system_error>

#include "app/text.h"
#include "files/hex_files.h"
#include "files/hex_files_texts.h"
#include "hex/hex_writer.h"
#include "hex/hex_zones.h"
#include "image/file_names.h"
#include "image/fill.h"

namespace quillon {

namespace fs = std::filesystem;

Outcome HexFiles::mnuFileSave_Click(std::optional<fs::path> chosen) {
    form_.CmbInit.clear();
    form_.TxtInit.Text.set("");
    if (selection_.Mcu_Selected_Check() != Token::OK) return Outcome::NoDevice;
    if (!chosen)
        chosen = dialogs_.file({.kind = FileDialog::Kind::Save,
                                .folder = path_of(settings_.text("SAVE_DIR")),
                                .filter = std::string{hex_files_text::kSaveFilter},
                                .default_extension = "Hex"});
    if (!chosen || !may_replace(*chosen)) {
        messages_.ShowMessage(hex_files_text::kSaveCancelled);
        return Outcome::Cancelled;
    }
    std::error_code error;
    const fs::path whole = fs::absolute(*chosen, error);
    const fs::path path = error ? *chosen : whole;
    const auto text = hex_text(session_, form_.Combo_device.Text.get(),
                               hex_addresses(form_, session_.DeviceName));
    if (const auto problem = host_.write_file(path, text)) {
        messages_.ShowMessage(hex_files_text::kNotSaved, *problem);
        return Outcome::Failed;
    }
    take_as_saved(path);
    return Outcome::Success;
}

bool HexFiles::may_replace(const fs::path& path) {
    std::error_code error;
    if (!fs::exists(path, error)) return true;
    return dialogs_.box({.title = std::string{hex_files_text::kReplaceTitle},
                         .text = std::string{hex_files_text::kReplace},
                         .icon = BoxIcon::Question,
                         .buttons = BoxButtons::OkCancel,
                         .name = "replace"}) == BoxAnswer::Ok;
}

void HexFiles::take_as_saved(const fs::path& path) {
    session_.HexFilePath = text_of(path);
    file_ = ImageMark{session_};
    show_name(path);
    settings_.save("SAVE_DIR", text_of(path.parent_path()));
    messages_.ShowPlain(printable(text_of(path.filename())) + std::string{hex_files_text::kSaved});
    // With the present option, a load would find something else at the addresses that were written.
    if (form_.HexFileCheck.Checked.get() && has_full_addresses(session_.DeviceName) &&
        hex_addresses(form_, session_.DeviceName) == HexAddresses::Folded &&
        program_span(session_) > kFoldedProgramBytes)
        messages_.AddMessage(hex_files_text::kSavedFolded);
}

}  // namespace quillon

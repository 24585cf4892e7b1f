// SPDX-License-Identifier: MIT
// The questions of a run as boxes and forms on the screen.
#include "forms/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>

#include "forms/Frm_VPP_DECIDE.h"
#include "forms/binders.h"
#include "forms/frmDeviceSelect.h"
#include "forms/frmHint.h"
#include "forms/placing.h"
#include "forms/small_form_texts.h"
#include "image/file_names.h"
#include "run/run.h"

namespace quillon {

namespace {

QMessageBox::Icon icon(BoxIcon wanted) {
    switch (wanted) {
        case BoxIcon::None:
            return QMessageBox::NoIcon;
        case BoxIcon::Critical:
            return QMessageBox::Critical;
        case BoxIcon::Question:
            return QMessageBox::Question;
        case BoxIcon::Warning:
            return QMessageBox::Warning;
        case BoxIcon::Information:
            return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

// The buttons with the answers they give. Escape and the close box give the last answer.
std::vector<std::pair<BoxAnswer, QMessageBox::StandardButton>> buttons(BoxButtons wanted) {
    switch (wanted) {
        case BoxButtons::Ok:
            return {{BoxAnswer::Ok, QMessageBox::Ok}};
        case BoxButtons::OkCancel:
            return {{BoxAnswer::Ok, QMessageBox::Ok}, {BoxAnswer::Cancel, QMessageBox::Cancel}};
        case BoxButtons::YesNo:
            return {{BoxAnswer::Yes, QMessageBox::Yes}, {BoxAnswer::No, QMessageBox::No}};
    }
    return {};
}

QString button_text(BoxAnswer answer) {
    switch (answer) {
        case BoxAnswer::Ok:
            return q(form_text::kOk);
        case BoxAnswer::Cancel:
            return q(form_text::kCancel);
        case BoxAnswer::Yes:
            return q(form_text::kYes);
        case BoxAnswer::No:
            return q(form_text::kNo);
    }
    return {};
}

}  // namespace

void QtDialogs::attach(Run& run, QWidget* owner, frmOption::Behind behind) {
    run_ = &run;
    owner_ = owner;
    behind_ = std::move(behind);
}

// A question that comes from another question is shown over that one.
QWidget* QtDialogs::owner() const {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : owner_;
}

BoxAnswer QtDialogs::box(const MessageBox& asked) {
    QMessageBox shown{owner()};
    shown.setObjectName(asked.name.empty() ? QStringLiteral("message_box") : q(asked.name));
    shown.setWindowTitle(q(asked.title));
    shown.setTextFormat(Qt::PlainText);
    shown.setText(q(asked.text).replace("\r\n", "\n").replace('\r', '\n'));
    shown.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    shown.setIcon(icon(asked.icon));
    const auto choices = buttons(asked.buttons);
    for (const auto& [answer, standard] : choices) {
        auto* button = shown.addButton(standard);
        button->setText(button_text(answer));
        button->setAutoDefault(false);
        if (answer == asked.default_answer) shown.setDefaultButton(button);
        shown.setEscapeButton(button);
    }
    const int pressed = shown.exec();
    for (const auto& [answer, standard] : choices)
        if (standard == pressed) return answer;
    return choices.back().first;
}

// If no folder was used yet: the current file's folder, else the user's documents.
std::filesystem::path QtDialogs::start_folder(const FileDialog& dialog) const {
    if (!dialog.folder.empty() || run_ == nullptr) return dialog.folder;
    const auto at_hand = path_of(run_->session.HexFilePath).parent_path();
    return at_hand.empty() ? run_->host.documents_folder() : at_hand;
}

std::optional<std::filesystem::path> QtDialogs::file(const FileDialog& dialog) {
    QFileDialog shown{owner()};
    shown.setObjectName("file_dialog");
    const bool save = dialog.kind == FileDialog::Kind::Save;
    shown.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // The Save command itself asks before it replaces a file.
    shown.setOption(QFileDialog::DontConfirmOverwrite);
    shown.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    shown.setDirectory(q(start_folder(dialog).string()));
    shown.setNameFilter(qt_filter(dialog.filter));
    if (!dialog.default_extension.empty()) shown.setDefaultSuffix(q(dialog.default_extension));
    if (!dialog.initial_name.empty()) shown.selectFile(q(dialog.initial_name));
    if (shown.exec() != QDialog::Accepted || shown.selectedFiles().isEmpty()) return std::nullopt;
    return std::filesystem::path{utf8(shown.selectedFiles().front())};
}

int QtDialogs::frmHint(const HintQuestion& question) {
    class frmHint form {
        question, owner()
    };
    form.on_hint = [this] {
        if (run_ != nullptr) run_->menu.CmdHint_Click();
    };
    if (owner_ != nullptr) form.move(centred_on(*owner_, form.sizeHint()));
    form.exec();
    return form.FormAnswer();
}

int QtDialogs::Frm_VPP_DECIDE(const std::string& Label1) {
    class Frm_VPP_DECIDE form {
        Label1, owner()
    };
    if (owner_ != nullptr) form.move(centred_on(*owner_, form.sizeHint()));
    form.exec();
    return form.FormAnswer();
}

void QtDialogs::frmOption() {
    if (run_ == nullptr) return;
    class frmOption form {
        run_->option_form, run_->option, behind_, owner()
    };
    if (owner_ != nullptr) form.move(centred_on(*owner_, form.sizeHint()));
    if (run_->option_form.Visible.get()) form.exec();
}

void QtDialogs::frmDeviceSelect() {
    if (run_ == nullptr) return;
    class frmDeviceSelect form {
        run_->device_select_form, run_->device_select, owner()
    };
    if (run_->device_select_form.Visible.get()) form.exec();
}

QString qt_filter(const std::string& filter) {
    const QStringList parts = q(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns;
        for (const QString& pattern : parts[i + 1].split(';', Qt::SkipEmptyParts)) {
            if (pattern == "*.*")
                patterns << "*";
            else
                patterns << pattern.toUpper() << pattern.toLower();
        }
        patterns.removeDuplicates();
        filters << parts[i] + " (" + patterns.join(' ') + ')';
    }
    return filters.join(";;");
}

}  // namespace quillon

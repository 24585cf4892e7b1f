// SPDX-License-Identifier: MIT
#include "forms/japanese.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QTranslator>
#include <memory>

namespace quillon::test {
namespace {

TEST(install_japanese, makes_the_file_dialog_japanese) {
    const std::unique_ptr<QTranslator> japanese{install_japanese(*qApp)};
    ASSERT_NE(japanese, nullptr) << "the toolkit's translations are not installed";
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    const auto* folder = dialog.findChild<QLabel*>("lookInLabel");
    ASSERT_NE(folder, nullptr);
    EXPECT_EQ(folder->text(), "アドレス:");
}

}  // namespace
}  // namespace quillon::test

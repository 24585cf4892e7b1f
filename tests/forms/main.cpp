// SPDX-License-Identifier: MIT
// The window tests' program: one application for all tests, with no display.
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

#include "forms/theme.h"

#if defined(__SANITIZE_ADDRESS__)
// Font and platform libraries keep what they have loaded until the process ends.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\nleak:libQt6Gui\nleak:libQt6XcbQpa\nleak:libqoffscreen\n"
           "leak:libglib\nleak:libdbus\n";
}
#endif

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication application{argc, argv};
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setFont(quillon::window_font(QApplication::font()));
    return RUN_ALL_TESTS();
}

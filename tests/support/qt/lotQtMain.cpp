// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs tests that need widgets. Without a word on the platform they take the one that needs no display.
#include <gtest/gtest.h>

#include <QApplication>
#include <QtGlobal>
#include <clocale>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}

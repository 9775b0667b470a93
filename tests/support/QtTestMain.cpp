// Test main for widget tests: a QApplication around GoogleTest. Listing the tests needs no
// display, so the application is made only when tests run.
#include "pbOpenGL.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstring>

int main(int argc, char** argv) {
    bool listing = false;
    for (int i = 1; i < argc; ++i)
        listing = listing || std::strcmp(argv[i], "--gtest_list_tests") == 0;
    ::testing::InitGoogleTest(&argc, argv);
    if (listing) return RUN_ALL_TESTS();
    SetDefaultViewFormat();
    QApplication app(argc, argv);
    return RUN_ALL_TESTS();
}

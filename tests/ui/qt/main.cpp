// The tests of the views run in an application of their own, without a screen unless they are given one.
#include <QApplication>
#include <cstdlib>

#include <gtest/gtest.h>

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}

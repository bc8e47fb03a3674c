#include <QApplication>
#include <gtest/gtest.h>

/// One main for all test programs: the windows are drawn off the screen.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

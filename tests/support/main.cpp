#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Test discovery runs the program while building, where no screen need be.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

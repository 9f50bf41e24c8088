#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
#ifdef Q_OS_UNIX
    // Test discovery runs the program while building, where no screen need be.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    ::testing::InitGoogleTest(&argc, argv);
#ifdef Q_OS_WIN
    // A case acts on the toolkit's own dialogs.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
#endif
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

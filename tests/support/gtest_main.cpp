#include <QGuiApplication>

#include <gtest/gtest.h>

// Core tests run with a GUI application object so that QImage, fonts and the palette work
// without a display (QT_QPA_PLATFORM=offscreen).
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    return RUN_ALL_TESTS();
}

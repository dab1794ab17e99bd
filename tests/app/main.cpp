#include "app/look/Theme.h"

#include <QAccessible>
#include <QApplication>
#include <QStandardPaths>
#include <gtest/gtest.h>

// Page tests look at pages on no screen, in one process with one application, as a person would use them.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    tessivo::Theme theme(application);
    QAccessible::setActive(true);
    return RUN_ALL_TESTS();
}

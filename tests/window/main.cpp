#include "app/look/Theme.h"
#include "tests/window/XServer.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QStandardPaths>
#include <cstdio>
#include <gtest/gtest.h>
#include <optional>

// Window tests stand on a real X server with a window manager, real scan codes and real focus.
int main(int argc, char** argv) {
    using namespace tessivo::windowtest;
    qputenv("QT_QPA_PLATFORM", "xcb");
    if (argc > 1 && std::string(argv[1]) == bystanderArgument) {
        QApplication application(argc, argv);
        QLabel label(QStringLiteral("Another program"));
        label.resize(200, 100);
        label.show();
        return application.exec();
    }
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
    std::optional<XServer> server;
    try {
        server.emplace();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "window tests: %s\n", error.what());
        return 1;
    }
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    tessivo::Theme theme(application);
    QAccessible::setActive(true);
    return RUN_ALL_TESTS();
}

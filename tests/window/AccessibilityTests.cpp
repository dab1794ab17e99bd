// The program on a real accessibility bus, driven as a screen reader's person does: by roles and names alone.

#include "tests/window/AccessibilityBus.h"

#include <QTest>
#include <gtest/gtest.h>

namespace tessivo::windowtest {
namespace {

constexpr int patience = 20'000; // milliseconds; a sanitized build is slow

class ScreenReader : public ::testing::Test {
protected:
    void SetUp() override {
        program.setProcessEnvironment(bus.environment());
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(TESSIVO_BUILD "/tessivo-demo", QStringList());
        window = bus.window(QStringLiteral("Tessivo"));
        ASSERT_TRUE(window) << program.readAll().toStdString();
    }
    ~ScreenReader() override {
        program.terminate();
        if (!program.waitForFinished(patience)) program.kill();
        program.waitForFinished();
    }

    bool shows(const char* role, const char* name) {
        return QTest::qWaitFor([&] { return find(role, name).has_value(); }, patience);
    }
    bool press(const char* role, const char* name) { return shows(role, name) && find(role, name)->press(); }
    bool goTo(const char* page) { return press("list item", page) && shows("heading", page); }
    std::optional<AccessibleNode> find(const char* role, const char* name) {
        return window->find(QString::fromLatin1(role), QString::fromUtf8(name));
    }

    AccessibilityBus bus;
    QProcess program;
    std::optional<AccessibleNode> window;
};

TEST_F(ScreenReader, aPersonGoesThroughOnePageOfEachKind) {
    // A test with an answer, an exclusion and a note.
    ASSERT_TRUE(goTo("Display"));
    ASSERT_TRUE(press("push button", "Yes, I saw some"));
    EXPECT_TRUE(shows("list item", "Display, Problem"));
    EXPECT_TRUE(find("push button", "Yes, I saw some")->isSelected());
    ASSERT_TRUE(find("text", "Problem note for Display"));
    EXPECT_TRUE(find("text", "Problem note for Display")->type(QStringLiteral("One green dot")));
    EXPECT_EQ(find("text", "Problem note for Display")->content(), u"One green dot");
    ASSERT_TRUE(press("check box", "Not part of this sale"));
    EXPECT_TRUE(shows("list item", "Display, Not included"));
    EXPECT_TRUE(find("check box", "Not part of this sale")->isChecked());

    // Devices that open and close, a number that is stepped, a choice of one.
    ASSERT_TRUE(goTo("Microphones"));
    ASSERT_TRUE(press("push button", "Listen"));
    EXPECT_TRUE(shows("push button", "Stop"));
    ASSERT_TRUE(goTo("USB ports"));
    ASSERT_TRUE(press("spin box", "Ports on this Mac: 2"));
    EXPECT_TRUE(shows("spin box", "Ports on this Mac: 3"));
    ASSERT_TRUE(press("list item", "This Mac"));
    ASSERT_TRUE(press("radio button", "Enabled"));
    EXPECT_TRUE(shows("list item", "This Mac, Problem"));

    // What is read, and what is kept.
    ASSERT_TRUE(goTo("Report"));
    EXPECT_TRUE(press("push button", "Save to History"));
    ASSERT_TRUE(press("list item", "History"));
    ASSERT_TRUE(shows("list", "Saved reports"));
    const auto saved =
        find("list", "Saved reports")->find(QStringLiteral("list item"), QStringLiteral("MacBook Air"));
    EXPECT_TRUE(saved);
    ASSERT_TRUE(goTo("Erase Before Sale"));
    ASSERT_TRUE(find("check box", ""));
    const QString step = find("check box", "")->name();
    EXPECT_TRUE(find("check box", "")->press());
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->find(QStringLiteral("check box"), step)->isChecked(); },
                                patience));
}

} // namespace
} // namespace tessivo::windowtest

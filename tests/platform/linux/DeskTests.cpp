#include "platform/linux/LinuxDefaults.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/SettingsPane.h"
#include "tests/SmallDisk.h"

#include <QSettings>
#include <QTest>
#include <cstring>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

std::string everyByte() {
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += char(i);
    return bytes;
}

TEST(LinuxDefaults, valuesSurviveToTheByte) {
    const TemporaryFolder folder;
    const auto file = folder / "new/folder/Tessivo.json";
    EXPECT_EQ(LinuxDefaults(file).data("session"), std::nullopt);
    EXPECT_EQ(LinuxDefaults(file).text("notes"), std::nullopt);
    for (const std::string& bytes :
         {everyByte(), std::string("{\"started\":1.5,\"overrides\":[]}"), std::string("@ByteArray("),
          std::string("Ein \"Kratzer\";\n% @Größe, \\x41 [x]=y 🎹\r\n\t "), std::string()}) {
        LinuxDefaults(file).setData("session", bytes);
        EXPECT_EQ(LinuxDefaults(file).data("session"), bytes);
        const std::string notes = bytes == everyByte() ? "other" : bytes; // a text is UTF-8
        LinuxDefaults(file).setText("notes", notes);
        EXPECT_EQ(LinuxDefaults(file).text("notes"), notes);
        EXPECT_EQ(LinuxDefaults(file).data("session"), bytes);
    }
}

TEST(LinuxDefaults, aFailedWriteLeavesTheValueBefore) {
    const TemporaryFolder folder;
    folder.write("file", "");
    LinuxDefaults nowhere(folder / "file/Tessivo.json");
    EXPECT_TRUE(nowhere.setText("notes", "lost"));
    EXPECT_EQ(nowhere.text("notes"), std::nullopt);

    const auto path = folder / "Tessivo.json";
    LinuxDefaults defaults(path);
    EXPECT_FALSE(defaults.setText("notes", "kept"));
    const std::string before = bytesOf(path);
    // Not to be written in place of a folder.
    std::filesystem::rename(path, folder / "aside");
    std::filesystem::create_directories(path / "in the way");
    EXPECT_TRUE(defaults.setText("notes", "lost"));
    std::filesystem::remove_all(path);
    std::filesystem::rename(folder / "aside", path);
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(LinuxDefaults(path).text("notes"), "kept");
}

TEST(LinuxDefaults, anyFileOpensAndNoneIsLost) {
    for (const std::string& bytes : {everyByte(), std::string("{\"session\": {\"data\": \"e30="),
                                     std::string(), std::string(1 << 20, '['), std::string("[1, 2]")}) {
        const TemporaryFolder folder;
        LinuxDefaults defaults(folder.write("Tessivo.json", bytes));
        EXPECT_EQ(defaults.data("session"), std::nullopt);
        defaults.setData("session", "new");
        EXPECT_EQ(LinuxDefaults(folder / "Tessivo.json").data("session"), "new");
        EXPECT_EQ(bytesOf(folder / "Tessivo.json.damaged"), bytes);
    }
}

TEST(LinuxDefaults, aValueOfAnotherTypeIsAbsentAndStays) {
    const TemporaryFolder folder;
    LinuxDefaults defaults(folder.write("Tessivo.json", R"({"session": "text", "notes": {"data": "e30="},
        "number": 17, "list": [1, {"data": 2}], "torn": {"data": "e3!"}, "bare": {}})"));
    for (const char* key : {"session", "number", "list", "torn", "bare", "none"})
        EXPECT_EQ(defaults.data(key), std::nullopt) << key;
    for (const char* key : {"notes", "number", "list", "none"})
        EXPECT_EQ(defaults.text(key), std::nullopt) << key;
    defaults.setText("new", "1");
    EXPECT_EQ(defaults.text("session"), "text");
    EXPECT_EQ(defaults.data("notes"), "{}");
    const std::string stored = bytesOf(folder / "Tessivo.json");
    EXPECT_NE(stored.find("17"), std::string::npos);
    EXPECT_NE(stored.find("e3!"), std::string::npos);
}

TEST(LinuxDefaults, nothingIsReplacedUnread) {
    using Kind = DefaultsEntry::Kind;
    const TemporaryFolder folder;
    const auto file = folder.write("Tessivo.json", R"({"notes": "mine", "session": {"data": "e30="}})");
    LinuxDefaults defaults(file);
    // In the way when it was asked for, there again when something is stored.
    std::filesystem::rename(file, folder / "aside");
    std::filesystem::create_directory(file);
    EXPECT_EQ(defaults.text("notes"), std::nullopt);
    std::filesystem::remove(file);
    std::filesystem::rename(folder / "aside", file);
    const std::string before = bytesOf(file);
    EXPECT_FALSE(defaults.set({{"session", Kind::data, "new"}, {"notes", Kind::text, ""}}));
    EXPECT_EQ(bytesOf(folder / "Tessivo.json.damaged"), before);
    // One torn value, and a second copy beside the first.
    const std::string torn = R"({"session": {"data": "e3!"}})";
    folder.write("Tessivo.json", torn);
    EXPECT_FALSE(defaults.setData("session", "newer"));
    EXPECT_EQ(bytesOf(folder / "Tessivo.json.damaged2"), torn);
    EXPECT_EQ(bytesOf(folder / "Tessivo.json.damaged"), before);
    EXPECT_FALSE(defaults.setData("session", "newest"));
    EXPECT_FALSE(std::filesystem::exists(folder / "Tessivo.json.damaged3"));
}

TEST(LinuxDefaults, theSettingsOfEarlierVersionsAreTakenOverOnceAndKept) {
    const TemporaryFolder folder;
    const QString earlier = QString::fromStdString((folder / "Tessivo.ini").string());
    {
        QSettings settings(earlier, QSettings::IniFormat);
        settings.setValue("session", QByteArray::fromStdString(everyByte()));
        settings.setValue("notes", QStringLiteral("Scuff, on the lid 🎹"));
        settings.setValue("hardwareKeys", QByteArray("{}"));
        settings.setValue("list", QStringList{"a", "b"});
    }
    const std::string before = bytesOf(folder / "Tessivo.ini");
    LinuxDefaults defaults(folder / "Tessivo.json");
    EXPECT_EQ(defaults.data("session"), everyByte());
    EXPECT_EQ(defaults.text("notes"), "Scuff, on the lid 🎹");
    EXPECT_EQ(defaults.text("list"), std::nullopt);
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"Tessivo.ini"}) << "to read writes nothing";
    defaults.setText("notes", "new");
    EXPECT_EQ(bytesOf(folder / "Tessivo.ini"), before);
    QSettings(earlier, QSettings::IniFormat).setValue("session", QByteArray("later"));
    EXPECT_EQ(defaults.data("session"), everyByte());
    EXPECT_EQ(defaults.text("notes"), "new");
    EXPECT_EQ(defaults.data("hardwareKeys"), "{}");

    std::filesystem::remove(folder / "Tessivo.json");
    std::filesystem::remove(folder / "Tessivo.ini");
    std::filesystem::create_directory(folder / "Tessivo.ini");
    defaults.setText("notes", "lost");
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"Tessivo.ini"})
        << "what can't be read isn't hidden";
}

TEST(LinuxDefaults, aSessionIsTheOldOneOrTheNewOneWhateverRoomIsLeftOnTheDisk) {
    constexpr std::size_t diskSize = 256 * 1024, step = 4096;
    using Kind = DefaultsEntry::Kind;
    const std::string before(9'000, 'a'), after(40'000, 'b'), notes = "Scuff on the lid";
    int kept = 0, replaced = 0;
    for (std::size_t fill = 0; fill <= diskSize; fill += step) {
        const SmallDisk disk(diskSize);
        if (!disk.isMounted()) GTEST_SKIP() << "a small disk takes root: " << std::strerror(errno);
        LinuxDefaults defaults(disk.folder() / "Tessivo.json");
        defaults.set({{"session", Kind::data, before}, {"notes", Kind::text, notes}});
        disk.folder().write("filler", std::string(fill, 'x'));
        const auto error = defaults.set({{"session", Kind::data, after}, {"notes", Kind::text, "new"}});

        const LinuxDefaults nextLaunch(disk.folder() / "Tessivo.json");
        const auto session = nextLaunch.data("session");
        ASSERT_TRUE(session == before || session == after) << "with " << fill << " bytes in the way";
        EXPECT_EQ(nextLaunch.text("notes"), session == before ? notes : "new") << "both or none";
        EXPECT_EQ(error, session == before ? std::make_error_code(std::errc::no_space_on_device)
                                           : std::error_code());
        ++(session == before ? kept : replaced);
        EXPECT_EQ(namesIn(disk.folder().path()), (std::vector<std::string>{"Tessivo.json", "filler"}));
    }
    EXPECT_GT(kept, 0);
    EXPECT_GT(replaced, 0);
}

/// Desktops of the test's own: what is installed, and which one runs.
class SettingsPanes : public ::testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(m_folder / "applications");
        for (const char* name : {"PATH", "XDG_DATA_DIRS", "XDG_DATA_HOME", "XDG_CURRENT_DESKTOP"})
            m_before.emplace_back(name, qgetenv(name));
        for (const char* name : {"PATH", "XDG_DATA_DIRS", "XDG_DATA_HOME"})
            qputenv(name, QByteArray::fromStdString(m_folder.path().string()));
    }
    void TearDown() override {
        for (const auto& [name, value] : m_before)
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }
    void install(const std::string& name) {
        const auto file = m_folder.write(name, "#!/bin/sh\necho \"$0 $@\" >\"${0%/*}/started\"\n");
        if (!name.ends_with(".desktop"))
            std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    }
    /// The command for a link, without its folder; empty for none.
    std::string command(const char* desktop, const std::string& pane) {
        qputenv("XDG_CURRENT_DESKTOP", desktop);
        const auto found = SettingsPane::find(link(pane));
        EXPECT_EQ(found.has_value(), m_desktop.canOpenURL(link(pane)));
        if (!found) return {};
        return (found->program.section('/', -1) + ' ' + found->arguments.join(' ')).toStdString();
    }
    static std::string link(const std::string& pane) {
        return "x-apple.systempreferences:com.apple.preference.security?Privacy_" + pane;
    }

    TemporaryFolder m_folder;
    LinuxDesktop m_desktop;
    std::vector<std::pair<const char*, QByteArray>> m_before;
};

TEST_F(SettingsPanes, aMacsPaneIsTheDesktopsOwnOrNone) {
    for (const char* desktop : {"GNOME", "KDE", "X-Cinnamon", "XFCE", ""})
        EXPECT_EQ(command(desktop, "Microphone") + command(desktop, "Camera"), "") << "nothing is installed";
    for (const char* program : {"gnome-control-center", "systemsettings", "cinnamon-settings"})
        install(program);
    EXPECT_EQ(command("ubuntu:GNOME", "Microphone"), "gnome-control-center sound");
    EXPECT_EQ(command("GNOME", "Camera"), "");
    EXPECT_EQ(command("KDE", "Microphone"), "");
    EXPECT_EQ(command("X-Cinnamon", "Microphone"), "cinnamon-settings sound");
    EXPECT_EQ(command("XFCE", "Microphone"), "");
    install("pavucontrol");
    EXPECT_EQ(command("XFCE", "Microphone"), "pavucontrol --tab=4");
    EXPECT_EQ(command("", "Camera"), "");
    for (const char* pane : {"gnome-privacy-panel", "kcm_pulseaudio"})
        install("applications/" + std::string(pane) + ".desktop");
    EXPECT_EQ(command("GNOME", "Camera"), "gnome-control-center privacy");
    EXPECT_EQ(command("KDE", "Microphone"), "systemsettings kcm_pulseaudio");
    for (const char* pane : {"gnome-microphone-panel", "gnome-camera-panel"})
        install("applications/" + std::string(pane) + ".desktop");
    EXPECT_EQ(command("GNOME-Classic:GNOME", "Camera"), "gnome-control-center camera");
    EXPECT_EQ(command("GNOME", "Microphone"), "gnome-control-center microphone");

    m_desktop.openURL(link("Unknown"));
    m_desktop.openURL(link("Camera"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return bytesOf(m_folder / "started").ends_with("camera\n"); }, 10'000));
    EXPECT_TRUE(m_desktop.canOpenURL("https://example.com/"));
}

} // namespace
} // namespace tessivo

#include "kit/support/Files.h"
#include "tests/TemporaryFolder.h"

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <system_error>

namespace tessivo {
namespace {

using testing::ElementsAre;

/// The condition that a call threw, or 0.
template <class Call>
int errorOf(Call call) {
    try {
        call();
    } catch (const std::system_error& error) {
        return error.code().value();
    }
    return 0;
}

TEST(Files, readsRegularFilesWithinTheBound) {
    const TemporaryFolder folder;
    EXPECT_EQ(Files::read(folder.write("empty", ""), 0), "");
    const auto file = folder.write("ten", std::string("0123\0"
                                                      "56789",
                                                      10));
    EXPECT_EQ(Files::read(file, 10).size(), 10u);
    EXPECT_EQ(errorOf([&] { Files::read(file, 9); }), EFBIG);
    std::filesystem::create_symlink(file, folder / "link");
    EXPECT_EQ(Files::read(folder / "link", 10), Files::read(file, 10));
}

TEST(Files, readsFilesThatDoNotTellTheirSize) {
    if (!std::filesystem::exists("/proc/self/status")) GTEST_SKIP() << "of Linux";
    const std::string status = Files::read("/proc/self/status", 1 << 20);
    EXPECT_NE(status.find("VmSize"), std::string::npos);
    EXPECT_EQ(errorOf([] { Files::read("/proc/self/status", 10); }), EFBIG);
}

TEST(Files, refusesWhatIsNoRegularFileAtOnce) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    std::filesystem::create_directory(folder / "folder");
    std::filesystem::create_symlink("loop", folder / "loop");
    std::filesystem::create_symlink("nothing", folder / "dangling");
    std::filesystem::create_symlink("/dev/zero", folder / "zero");
    folder.write("sparse", "");
    std::filesystem::resize_file(folder / "sparse", std::uintmax_t(5) << 30);
    const std::pair<const char*, int> rows[] = {{"fifo", ENOTSUP},    {"folder", EISDIR}, {"loop", ELOOP},
                                                {"dangling", ENOENT}, {"zero", ENOTSUP},  {"sparse", EFBIG},
                                                {"missing", ENOENT}};
    for (const auto& [name, error] : rows)
        EXPECT_EQ(errorOf([&, name = name] { Files::read(folder / name, 1 << 20); }), error) << name;
}

TEST(Files, aFaultNamesTheFileAndTheReason) {
    try {
        Files::read("/nowhere/report.json", 10);
        FAIL();
    } catch (const std::system_error& error) {
        EXPECT_STREQ(error.what(), "can't read “/nowhere/report.json”: No such file or directory");
    }
}

TEST(Files, writesNewFilesAndReplacesOldOnes) {
    const TemporaryFolder folder;
    const auto file = folder / "a.json";
    Files::writeAtomically(file, "first");
    Files::writeAtomically(file, "");
    EXPECT_EQ(bytesOf(file), "");
    const std::string large(3 << 20, 'x');
    Files::writeAtomically(file, large);
    EXPECT_EQ(bytesOf(file), large);
    const std::string longName(255, 'n');
    Files::writeAtomically(folder / longName, "x");
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("a.json", longName));
}

TEST(Files, keepsThePermissionsOfTheFileThatItReplaces) {
    const TemporaryFolder folder;
    const auto file = folder.write("a", "old");
    std::filesystem::permissions(file, std::filesystem::perms(0600));
    Files::writeAtomically(file, "new");
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0600));
}

TEST(Files, aTargetThatCanNotBeReplacedLeavesNothingBehind) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "taken/inside");
    EXPECT_EQ(errorOf([&] { Files::writeAtomically(folder / "taken", "x"); }), EISDIR);
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("taken"));
    EXPECT_EQ(errorOf([&] { Files::writeAtomically(folder / "missing/a", "x"); }), ENOENT);
    EXPECT_EQ(errorOf([&] { Files::writeAtomically(folder / std::string(300, 'n'), "x"); }), ENAMETOOLONG);
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("taken"));
}

TEST(Files, makesFoldersWithTheirParents) {
    const TemporaryFolder folder;
    Files::Calls calls;
    Files::createFolders(folder / "a/b/c", calls);
    Files::createFolders(folder / "a/b/c/", calls);
    Files::createFolders(folder / "a/d/", calls);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b/c") &&
                std::filesystem::is_directory(folder / "a/d"));
    folder.write("file", "");
    EXPECT_EQ(errorOf([&] { Files::createFolders(folder / "file", calls); }), EEXIST);
    EXPECT_EQ(errorOf([&] { Files::createFolders(folder / "file/below", calls); }), EEXIST);
}

TEST(Files, removesOldStraysOfItsOwnAlone) {
    const TemporaryFolder folder;
    const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(2);
    const std::string ours = ".tessivo-0123456789abcdef.saving";
    for (const std::string& name :
         {ours, std::string(".tessivo-0123456789abcdeX.saving"), std::string(".tessivo-1.saving"),
          std::string("tessivo-0123456789abcdef.saving"), std::string("a.json")})
        std::filesystem::last_write_time(folder.write(name, "x"), old);
    folder.write(".tessivo-fedcba9876543210.saving", "being written just now");
    std::filesystem::create_directory(folder / ".tessivo-0000000000000000.saving");
    std::filesystem::last_write_time(folder / ".tessivo-0000000000000000.saving", old);
    Files::removeStrays(folder.path());
    EXPECT_FALSE(std::filesystem::exists(folder / ours));
    EXPECT_EQ(namesIn(folder.path()).size(), 6u);
    Files::removeStrays(folder / "missing");
}

} // namespace
} // namespace tessivo

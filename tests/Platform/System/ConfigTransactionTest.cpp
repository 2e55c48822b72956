#include "Platform/System/ConfigTransaction.h"

#include "Platform/System/Config.h"
#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace
{

namespace fs = std::filesystem;

/// A configuration in a file of the test's own, which isn't there at first.
class ConfigTransactionTest : public testing::Test
{
protected:
    ConfigTransactionTest() { setenv("GFX_SYSTEM_CONFIG", path.c_str(), 1); }
    ~ConfigTransactionTest() override { unsetenv("GFX_SYSTEM_CONFIG"); }

    static double Double(const std::string& a_key)
    {
        const auto config = Open();
        return CConfigTransaction(config.get()).GetDouble("s", a_key, -1.5, false);
    }
    static void Set(const std::string& a_key, double a_value)
    {
        const auto config = Open();
        CConfigTransaction(config.get()).SetDouble("s", a_key, a_value);
    }
    static std::shared_ptr<CConfig> Open()
    {
        return {CConfig::GetSystemConfig(), [](CConfig* a_config) { a_config->Release(); }};
    }

    static std::string Text(const std::string& a_path)
    {
        std::ifstream file(a_path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    const GfxTest::CTemporaryDirectory folder;
    const std::string path = folder.Path() + "var/lib/system.conf";
};

TEST_F(ConfigTransactionTest, WhatIsSetIsThereInTheNextTransaction)
{
    EXPECT_EQ(Double("x"), -1.5);
    EXPECT_FALSE(fs::exists(fs::path(path).parent_path())) << "to read writes nothing";
    Set("x", -808.746459960937500);
    Set("y", 5e-324);
    EXPECT_EQ(Double("x"), -808.746459960937500);
    EXPECT_EQ(Double("y"), 5e-324);
}

TEST_F(ConfigTransactionTest, AWriteLeavesTheRestOfTheFileAndItsRightsAlone)
{
    const std::string real = folder.Write("real.conf", "# by hand\n\n[other]\nname=a b\nname[de]=c\n\n[s]\nx=1\ny=2\n");
    fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_directories(fs::path(path).parent_path());
    fs::create_symlink(real, path);
    Set("x", 3);
    EXPECT_EQ(Text(real), "# by hand\n\n[other]\nname=a b\nname[de]=c\n\n[s]\nx=3\ny=2\n");
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(ConfigTransactionTest, WhatIsDamagedGivesTheFallbacksAndOneLine)
{
    folder.Write("var/lib/system.conf", "[s]\nx=left\nz=4\non=maybe\n");
    {
        const auto config = Open();
        CConfigTransaction transaction(config.get());
        EXPECT_EQ(transaction.GetDouble("s", "x", 7, false), 7);
        EXPECT_TRUE(transaction.GetBool("s", "on", true, false));
        EXPECT_EQ(transaction.GetDouble("s", "z", 9, false), 4);
    }
    GfxTest::ExpectLog("Damaged value in " + path);
    EXPECT_EQ(GfxTest::CountLogs(path), 1);

    folder.Write("var/lib/system.conf", "[s]\nx=1\nno key\n");
    EXPECT_EQ(Double("x"), -1.5);
    GfxTest::ExpectLog("Unable to read " + path);
    EXPECT_EQ(GfxTest::CountLogs(path), 2);
    Set("y", 2);
    EXPECT_EQ(Text(path), "[s]\ny=2\n");

    fs::remove_all(folder.Path() + "var/lib");
    const std::string file = folder.Write("var/lib", "not a folder");
    Set("x", 1);
    GfxTest::ExpectLog("it could not be read");
    EXPECT_EQ(Text(file), "not a folder");

    fs::remove(file);
    fs::create_directories(file);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    Set("x", 1);
    GfxTest::ExpectLog("it isn't a regular file");
    EXPECT_TRUE(fs::is_fifo(path));
}

TEST_F(ConfigTransactionTest, AFailedWriteLeavesTheOldFileWhole)
{
    folder.Write("var/lib/system.conf", "[s]\nx=1\n");
    // No file may grow, as if the disk were full.
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit none{0, limit.rlim_max};
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &none);
    Set("x", 2);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, oldHandler);
    GfxTest::ExpectLog("Unable to write " + path + ": File too large");
    EXPECT_EQ(Text(path), "[s]\nx=1\n");
    const fs::directory_iterator files(fs::path(path).parent_path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "nothing half-written remains";
}

} // namespace

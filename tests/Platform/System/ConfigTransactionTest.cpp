#include "Platform/System/ConfigTransaction.h"

#include "Platform/System/Config.h"
#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

namespace
{

namespace fs = std::filesystem;

/// A configuration in a file of the test's own, which isn't there at first.
class ConfigTransactionTest : public testing::Test
{
protected:
    void SetUp() override { Use(path); }
    void TearDown() override { unsetenv("GFX_SYSTEM_CONFIG"); }

    static void Use(const std::string& a_path) { setenv("GFX_SYSTEM_CONFIG", a_path.c_str(), 1); }

    /// Runs a_work in a transaction.
    static void Do(const std::function<void(CConfigTransaction&)>& a_work)
    {
        CConfig* const config = CConfig::GetSystemConfig();
        {
            CConfigTransaction transaction(config);
            a_work(transaction);
        }
        config->Release();
    }

    static double Double(const std::string& a_key)
    {
        double value = 0;
        Do([&](CConfigTransaction& a_config) { value = a_config.GetDouble("s", a_key, -1.5, false); });
        return value;
    }

    static void Set(const std::string& a_key, double a_value)
    {
        Do([&](CConfigTransaction& a_config) { a_config.SetDouble("s", a_key, a_value); });
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
    for (const double value : {0.1, -808.746459960937500, 1e300, 5e-324})
    {
        Set("x", value);
        EXPECT_EQ(Double("x"), value);
    }
    Do([](CConfigTransaction& a_config) { a_config.SetBool("s", "on", true); });
    Do(
        [](CConfigTransaction& a_config)
        {
            EXPECT_TRUE(a_config.GetBool("s", "on", false, false));
            EXPECT_TRUE(a_config.GetBool("s", "off", true, false));
            a_config.SetBool("s", "on", false);
            EXPECT_FALSE(a_config.GetBool("s", "on", true, false));
        });
    EXPECT_EQ(Double("x"), 5e-324);
}

TEST_F(ConfigTransactionTest, AWriteLeavesTheRestOfTheFileAndItsRightsAlone)
{
    const std::string real = folder.Write("real.conf", "# by hand\n\n[other]\nname=a b\nname[de]=c\n\n[s]\nx=1\ny=2\n");
    fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write);
    const std::string link = folder.Path() + "link.conf";
    fs::create_symlink(real, link);
    Use(link);
    Set("x", 3);
    EXPECT_EQ(Text(real), "# by hand\n\n[other]\nname=a b\nname[de]=c\n\n[s]\nx=3\ny=2\n");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(ConfigTransactionTest, ADamagedFileIsEmptyAndReplaced)
{
    for (const char* const damaged : {"[s]\nx=1\nno key\n", "[s]\nx=1\n[s\n", "x=1\n", "\x7FOF"})
    {
        folder.Write("var/lib/system.conf", damaged);
        const int before = GfxTest::CountLogs("Unable to read " + path);
        EXPECT_EQ(Double("x"), -1.5) << damaged;
        GfxTest::ExpectLog("Unable to read " + path);
        EXPECT_EQ(GfxTest::CountLogs("Unable to read " + path), before + 1) << damaged;
        Set("y", 2);
        EXPECT_EQ(Text(path), "[s]\ny=2\n");
    }
}

TEST_F(ConfigTransactionTest, DamagedValuesGiveTheirFallbacksAndOneLine)
{
    folder.Write("var/lib/system.conf", "[s]\nx=left\ny=1.5e\nz=4\non=maybe\n");
    Do(
        [](CConfigTransaction& a_config)
        {
            EXPECT_EQ(a_config.GetDouble("s", "x", 7, false), 7);
            EXPECT_EQ(a_config.GetDouble("s", "y", 8, false), 8);
            EXPECT_EQ(a_config.GetDouble("s", "z", 9, false), 4);
            EXPECT_TRUE(a_config.GetBool("s", "on", true, false));
        });
    GfxTest::ExpectLog("Damaged value in " + path);
    EXPECT_EQ(GfxTest::CountLogs("Damaged"), 1);
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

TEST_F(ConfigTransactionTest, WhereThereIsNoReadingThereIsNoWriting)
{
    const std::string file = folder.Write("file", "text");
    Use(file + "/system.conf");
    Set("x", 1);
    GfxTest::ExpectLog("Unable to read " + file);
    GfxTest::ExpectLog("it could not be read");
    EXPECT_EQ(Text(file), "text");

    CConfigTransaction nowhere(nullptr);
    nowhere.SetDouble("s", "x", 1);
    EXPECT_EQ(nowhere.GetDouble("s", "y", 2, false), 2);
}

} // namespace

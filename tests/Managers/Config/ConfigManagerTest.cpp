#include "Managers/Config/ConfigManager.h"

#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace
{

using Gfx::Managers::CConfigManager;
using GfxTest::CTemporaryDirectory;

constexpr const char* k_file = "Configuration/GfxConfig.xml";
constexpr const char* k_notLoaded = "3 (CConfigManager) : Unable to load GfxConfig.xml";

/// Writes a_general as the content of /Gfx/General and initialises a_config with it.
void Load(CConfigManager& a_config, const CTemporaryDirectory& a_directory, const std::string& a_general)
{
    // The base path is a prefix, used as it is.
    a_directory.Write(std::string("prefix") + k_file, "<Gfx><General>" + a_general + "</General></Gfx>");
    a_config.Initialise(a_directory.Path() + "prefix");
    EXPECT_EQ(a_config.BasePath(), a_directory.Path() + "prefix");
}

TEST(ConfigManagerTest, OnlyATextThatConvertsEntirelyIsAValue)
{
    const struct
    {
        const char* text;
        int number;
        const char* word;
    } cases[] = {
        {"7", 7, "7"},           {"-12", -12, "-12"},       {"abc", 1000, "abc"},
        {"12px", 1000, "12px"},  {"1.5", 1000, "1.5"},      {" 7", 1000, "default"},
        {"", 1000, "default"},   {"Yes", 1000, "Yes"},      {"Top Left", 1000, "default"},
        {"0x10", 1000, "0x10"},  {"010", 10, "010"},        {"99999999999", 1000, "99999999999"},
        {"\n", 1000, "default"}, {"a\tb", 1000, "default"},
    };
    const CTemporaryDirectory directory;
    for (const auto& expected : cases)
    {
        CConfigManager config;
        Load(config, directory, std::string("<Key>") + expected.text + "</Key>");
        EXPECT_EQ(config.Get<int>("/Gfx/General/Key", 1000), expected.number) << expected.text;
        EXPECT_EQ(config.Get<std::string>("/Gfx/General/Key", "default"), expected.word) << expected.text;
    }
}

TEST(ConfigManagerTest, EveryReaderGetsItsOwnDefault)
{
    const CTemporaryDirectory directory;
    CConfigManager config;
    Load(config, directory, "<Empty/><Word>abc</Word>");
    for (const char* path : {"/Gfx/General/Missing", "/Gfx/General/Empty", "/Gfx/General/Word"})
    {
        EXPECT_EQ(config.Get<int>(path, 1), 1) << path;
        EXPECT_EQ(config.Get<int>(path, 2), 2) << path;
    }
    EXPECT_EQ(config.Get<std::string>("/Gfx/General/Missing", "two words"), "two words");
    EXPECT_EQ(config.Get<std::string>("/Gfx/General/Missing", ""), "");
}

TEST(ConfigManagerTest, APathIsLookedUpOnce)
{
    const CTemporaryDirectory directory;
    CConfigManager config;
    EXPECT_EQ(config.Get<int>("/Gfx/General/ReadTooEarly", 1), 1);
    EXPECT_EQ(config.Get<std::string>("/Gfx/General/ClipText", "Yes"), "Yes");

    Load(config, directory, "<ReadTooEarly>5</ReadTooEarly><Kept>6</Kept><ClipText>Yes</ClipText>");
    EXPECT_EQ(config.Get<int>("/Gfx/General/ReadTooEarly", 2), 2);
    EXPECT_FALSE(config.ClipText());
    EXPECT_EQ(config.Get<int>("/Gfx/General/Kept", 2), 6);
    EXPECT_EQ(config.Get<int>("/Gfx/General/Added", 2), 2);

    Load(config, directory, "<Kept>7</Kept><Added>8</Added><Unread>9</Unread>");
    EXPECT_EQ(config.Get<int>("/Gfx/General/Kept", 2), 6);
    EXPECT_EQ(config.Get<int>("/Gfx/General/Added", 2), 2);
    EXPECT_EQ(config.Get<int>("/Gfx/General/Unread", 2), 9);
}

TEST(ConfigManagerTest, LabelsAreClippedForTheExactWordOnly)
{
    const CTemporaryDirectory directory;
    EXPECT_FALSE(CConfigManager().ClipText());
    for (const std::string text : {"Yes", "YES", "yes", "True", "No", "", "Yes ", " Yes", "Yes Yes"})
    {
        CConfigManager config;
        Load(config, directory, "<ClipText>" + text + "</ClipText>");
        EXPECT_EQ(config.ClipText(), text == "Yes") << text;
    }
}

TEST(ConfigManagerTest, WithoutAFileAllIsDefault)
{
    const CTemporaryDirectory directory;
    CConfigManager config;
    GfxTest::ExpectLog(directory.Path() + k_file + ": No such file or directory");
    GfxTest::ExpectLog(k_notLoaded);
    config.Initialise(directory.Path());
    EXPECT_EQ(GfxTest::CountLogs(k_notLoaded), 1);
    EXPECT_EQ(config.Get<int>("/Gfx/General/CleanupInterval", 5000), 5000);
    EXPECT_FALSE(config.ClipText());
}

TEST(ConfigManagerTest, AMalformedFileIsNotUsedAndItsFaultIsLocated)
{
    const CTemporaryDirectory directory;
    const std::string path =
        directory.Write(k_file, "<Gfx>\n  <General>\n    <ClipText>Yes</ClipText>\n  </Genera>\n</Gfx>\n");
    CConfigManager config;
    GfxTest::ExpectLog("(XMLDocument) : " + path + ":4:5: ");
    GfxTest::ExpectLog(k_notLoaded);
    config.Initialise(directory.Path());
    EXPECT_EQ(GfxTest::CountLogs(path + ":4:5: "), 1);
    EXPECT_EQ(GfxTest::CountLogs(k_notLoaded), 1);
    EXPECT_FALSE(config.ClipText());
}

} // namespace

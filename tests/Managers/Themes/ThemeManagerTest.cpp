#include "Managers/Themes/ThemeManager.h"

#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using Gfx::Managers::CThemeManager;

/// A manager of its own over a file with the given themes.
void Read(CThemeManager& a_manager, const std::string& a_xml)
{
    const GfxTest::CTemporaryDirectory directory;
    directory.Write("Configuration/ThemeConfig.xml", a_xml);
    a_manager.Initialise(directory.Path());
}

TEST(ThemeManagerTest, TheDefaultThemeIsTheOneThatIsNamedOrElseTheFirstWithAnId)
{
    CThemeManager named;
    Read(named, R"(<Themes default="b"><Theme id="a"/><Theme id="b"/></Themes>)");
    EXPECT_EQ(named.GetTheme(), "b");

    CThemeManager below;
    Read(below, R"(<Gfx><Themes default="b"><Theme id="b"/></Themes></Gfx>)");
    EXPECT_EQ(below.GetTheme(), "b");

    GfxTest::ExpectLog("3 (CThemeManager) : A theme id was missing from a theme node");
    CThemeManager first;
    Read(first, R"(<Themes><Other id="x"/><Theme/><Theme id="a"/><Theme id="b"/></Themes>)");
    EXPECT_EQ(first.GetTheme(), "a");
}

TEST(ThemeManagerTest, ElementsAreThoseOfTheCurrentThemeOnly)
{
    GfxTest::ExpectLog("3 (CThemeManager) : An element requires both an id and a value");
    CThemeManager manager;
    Read(manager, R"(<Themes>
        <Theme id="day"><Element id="Ink" value="Black"/><Element id="Ink" value="Navy"/><Other id="Paper" value="x"/>
            <Element id="Paper" value=""/><Element value="White"/></Theme>
        <Theme id="night"><Element id="Paper" value="Black"/></Theme>
        <Theme id="day"><Element id="Edge" value="Gray"/></Theme></Themes>)");
    EXPECT_EQ(GfxTest::CountLogs("An element requires"), 2);
    EXPECT_EQ(manager.Element("Ink", "none"), "Navy");
    EXPECT_EQ(manager.Element("Paper", "none"), "none");
    EXPECT_EQ(manager.Element("Edge", "none"), "Gray") << "a later theme of the same id adds to the first";
    manager.SetTheme("night");
    EXPECT_EQ(manager.GetTheme(), "night");
    EXPECT_EQ(manager.Element("Paper", "none"), "Black");
    EXPECT_EQ(manager.Element("Ink", "none"), "none");
    manager.SetTheme("dusk");
    EXPECT_EQ(manager.GetTheme(), "night");
}

TEST(ThemeManagerTest, WithoutTheThemeThatIsInForceTheProcessEnds)
{
    CThemeManager manager;
    EXPECT_DEATH(manager.Initialise("nowhere/"), "assertion failed: currentNode");
    EXPECT_DEATH(Read(manager, "<Other/>"), "assertion failed: currentNode");
    EXPECT_DEATH(Read(manager, "<Themes"), "assertion failed: currentNode");
    Read(manager, R"(<Themes default="c"><Theme id="a"/></Themes>)");
    EXPECT_DEATH(static_cast<void>(manager.Element("Ink", "")), "themeIter != m_themes.end\\(\\)");
}

} // namespace

#include "Layout/LayoutCheck.h"

#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace
{

/// The findings in a layout of one line with these elements, without the file's name.
std::vector<std::string> Check(const std::string& a_elements)
{
    const GfxTest::CTemporaryDirectory data;
    data.Write("Configuration/OSK.xml", "<Keyboards><Keyboard id='Pad'/></Keyboards>");
    data.Write("Layouts/a.xml", "<Layouts><Layout id='Main'>\n" + a_elements + "</Layout></Layouts>");
    std::vector<std::string> findings = Gfx::Layout::CheckLayouts(data.Path());
    for (std::string& finding : findings)
    {
        const std::string file = data.Path() + "Layouts/a.xml:";
        EXPECT_EQ(finding.substr(0, file.size()), file);
        finding.erase(0, file.size());
    }
    return findings;
}

std::string InClick(const std::string& a_actions)
{
    return "<Label id='l' x='0' y='0'><Events><Click>\n" + a_actions + "</Click></Events></Label>";
}

TEST(LayoutCheckTest, EachFaultIsFoundWhereItStands)
{
    struct SCase
    {
        std::string elements;
        std::string finding;
    };
    const SCase cases[] = {
        {"<Buton id='b' x='0' y='0'/>", "2:1: no element is called Buton"},
        {"<Button x='0' y='0'/>", "2:1: Button needs an id"},
        {"<Button id='b' y='0'/>", "2:1: Button needs a place: x"},
        {"<Button id='b' x='0' y='-1'/>", "2:1: y is negative"},
        {" <Button id='b' x='0' y='0' widht='9'/>", "2:2: Button has no attribute widht"},
        {"<ProgressBar id='p' x='0' y='0' max='50' current='51'/>", "2:1: current lies outside of min and max"},
        {"<Button id='b' x='0' y='0' width='9px'/>", "2:1: width=\"9px\" is no integer"},
        {"<Button id='b' x='0' y='0' visible='true'/>", "2:1: visible=\"true\" is neither True nor False"},
        {"<Image id='i' x='0' y='0'><Font/></Image>", "2:27: Image has no use for Font"},
        {"<Button id='b' x='0' y='0'><Font>\n<Sise/></Font></Button>", "3:1: Font has no use for Sise"},
        {"<ProgressBar id='p' x='0' y='0'><Events/></ProgressBar>", "2:33: ProgressBar has no use for Events"},
        {"<Keyboard id='k' x='0' y='0' layout='pad'/>", "2:1: there is no keyboard layout \"pad\""},
        {"<Panel id='p' x='0' y='0'>\n<Keyboard id='k' x='0' y='0'/></Panel>",
         "3:1: a Keyboard can't be in another element"},
        {"<RadioGroup/>", "2:1: a RadioGroup needs a container around it"},
        {"<Panel id='p' x='0' y='0'>\n<RadioGroup><RadioButton id='r' x='0'/></RadioGroup></Panel>",
         "3:13: RadioButton needs a place: y"},
        {"<Panel id='p' x='0' y='0'>\n<Label id='a' x='0' y='0'/>\n<Image id='a' x='0' y='0'/></Panel>",
         "4:1: there is another element a beside it"},
        {"<Label id='l' x='0' y='0'><Events>\n<Scroll/></Events></Label>", "3:1: Label has no event Scroll"},
        {InClick("<Halt/>"), "3:1: no action is called Halt"},
        {InClick("<Stop id='x'/>"), "3:1: Stop has no attribute id"},
        {InClick("<Condition type='&lt;' lhs='1' rhs='2'>\n<Condition type='is'/></Condition>"),
         "4:1: no operator is called \"is\""},
        {InClick("<ShowMessageBox>\n<Button4/></ShowMessageBox>"), "4:1: ShowMessageBox has no use for Button4"},
        {InClick("<ShowMessageBox><Button1>\n<Go/></Button1></ShowMessageBox>"), "4:1: no action is called Go"},
        {InClick("<ActivateLayout id='Other'/>"), "3:1: there is no layout \"Other\""},
    };
    for (const SCase& c : cases)
    {
        EXPECT_EQ(Check(c.elements), std::vector<std::string>{c.finding}) << c.elements;
    }
}

TEST(LayoutCheckTest, WhatIsRightIsNotReported)
{
    EXPECT_EQ(Check("<Keyboard id='k' x='0' y='0' layout='Pad'/><Window id='w' x='0' y='0' title='t' "
                    "modal='True'><Events><Show><Stop/></Show></Events>"
                    "<Button id='b' x='0' y='0'><Font><Size>20</Size></Font><TextureSet id='s'><Inactive>a</Inactive>"
                    "<Hover>b</Hover><Active>c</Active></TextureSet></Button>"
                    "<WizardStage id='stage'><Scrollbar id='s' x='1' y='2'><Events><Scroll><ActivateLayout id='Main'/>"
                    "<Condition type='Less Than' lhs='a' rhs='b'><SetFlag/></Condition></Scroll></Events></Scrollbar>"
                    "</WizardStage></Window>"),
              std::vector<std::string>{});
}

TEST(LayoutCheckTest, FilesAreReadInTheOrderOfTheirNames)
{
    const GfxTest::CTemporaryDirectory data;
    EXPECT_TRUE(Gfx::Layout::CheckLayouts(data.Path()).empty());
    data.Write("Layouts/1.xml", "<Layouts><Layout id='A'/>\n<Layout/><Lay/></Layouts>");
    data.Write("Layouts/2.xml", "<Layouts>\n\n<Layout id='A'/></Layouts>");
    data.Write("Layouts/3.xml", "<Layouts><");
    data.Write("Layouts/4.xml", "<Other/>");
    data.Write("Layouts/5.xml.bak", "<Layouts><");
    GfxTest::ExpectLog("Layouts/3.xml:1:");
    const std::vector<std::string> findings = Gfx::Layout::CheckLayouts(data.Path());
    const char* const expected[] = {"1.xml:2:1: a Layout needs an id", "1.xml:2:10: a Lay is no Layout",
                                    "2.xml:3:1: there is another layout A",
                                    "3.xml:1:", "4.xml:1:1: there is no Layouts node"};
    ASSERT_EQ(findings.size(), std::size(expected));
    for (std::size_t i = 0; i < findings.size(); ++i)
    {
        EXPECT_NE(findings[i].find(expected[i]), std::string::npos) << findings[i];
    }
}

} // namespace

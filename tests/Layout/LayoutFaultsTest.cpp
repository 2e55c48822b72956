// Layout files as nobody should write them: whatever is in them, the process goes on.

#include "Core/IO/XMLDocument.h"
#include "Layout/LayoutCheck.h"
#include "Managers/Layout/LayoutManager.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <algorithm>

namespace
{

using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;
using Gfx::Managers::CLayoutManager;
using GfxTest::WidgetPtr;

class LayoutFaultsTest : public GfxTest::CControlTest
{
protected:
    static CLayoutManager& Layouts() { return StaticSingleton<CLayoutManager>::ref(); }

    void SetUp() override
    {
        CControlTest::SetUp();
        // Whatever is logged is not what these tests are about, unless they say so.
        GfxTest::ExpectLog(" : ");
    }

    void TearDown() override
    {
        for (const WidgetPtr& widget : Widgets().TopLevelWidgets())
        {
            Widgets().DestroyWidget(widget.Get());
        }
        CControlTest::TearDown();
    }

    static std::string Repeat(const std::string& a_text, int a_times)
    {
        std::string result;
        for (int i = 0; i < a_times; ++i)
        {
            result += a_text;
        }
        return result;
    }

    static std::string File(const std::string& a_id, const std::string& a_elements)
    {
        return "<Layouts><Layout id='" + a_id + "'>" + a_elements + "</Layout></Layouts>";
    }

    /// A label whose list at "Hide" is a_actions.
    static std::string AtHide(const std::string& a_actions)
    {
        return "<Label id='l' x='0' y='0'><Events><Hide>" + a_actions + "</Hide></Events></Label>";
    }

    /// Reads a file of one layout and puts it on the stage; returns its widgets.
    std::list<WidgetPtr> Show(const std::string& a_id, const std::string& a_elements)
    {
        Layouts().ParseLayoutFile(m_data.Write(a_id + ".xml", File(a_id, a_elements)));
        Layouts().ApplyLayout(a_id);
        return Layouts().RetrieveLayout(a_id);
    }

    /// Makes all layouts of a text, if it is XML; returns whether it is.
    static bool Make(const std::string& a_text)
    {
        Core::IO::XMLDocument document;
        if (!document.ParseText(a_text, "text"))
        {
            return false;
        }
        if (const XMLNode* const layouts = document.Section("Layouts"))
        {
            for (const XMLNode& layout : layouts->Children())
            {
                Layouts().ParseLayoutNode(layout);
            }
        }
        return true;
    }

    const GfxTest::CTemporaryDirectory m_data;
};

TEST_F(LayoutFaultsTest, FilesThatAreNoXmlAddNothing)
{
    struct SCase
    {
        const char* what;
        std::string text;
    };
    const std::string file = File("bad", "<Label id='l' x='0' y='0'/>");
    std::string bomb = "<!DOCTYPE Layouts [<!ENTITY e0 'eeeeeeeeee'>";
    for (int i = 1; i < 30; ++i)
    {
        const std::string former = "&e" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY e" + std::to_string(i) + " '" + Repeat(former, 10) + "'>";
    }
    const std::string nul(1, '\0');
    int number = 0;
    for (const SCase& c :
         {SCase{"empty", ""}, SCase{"one byte", "<"}, SCase{"noise", "\x80\x81\xFE\xFF"}, SCase{"zeros", nul + nul},
          SCase{"a zero in a text", "<Layouts><Layout id='bad" + nul + "'/></Layouts>"},
          SCase{"a zero behind it all", file + nul}, SCase{"Latin letters as UTF-8", File("bad", "<L id='\xE4'/>")},
          SCase{"half a character of UTF-16", "\xFF\xFE" + file},
          SCase{"an unknown encoding", "<?xml version='1.0' encoding='none'?>" + file},
          SCase{"a wrong encoding", "<?xml version='1.0' encoding='UTF-16'?>" + file},
          SCase{"nested too deep",
                File("bad", Repeat("<Panel id='p' x='0' y='0'>", 10'000) + Repeat("</Panel>", 10'000))},
          SCase{"deep and open", "<Layouts>" + Repeat("<a>", 100'000)},
          SCase{"conditions too deep", File("bad", AtHide(Repeat("<Condition type='==' lhs='1' rhs='1'>", 1'000) +
                                                          Repeat("</Condition>", 1'000)))},
          SCase{"other nodes", "<Others>" + file + "</Others>"}})
    {
        const std::string name = std::to_string(++number) + ".xml";
        m_data.Write("Layouts/" + name, c.text);
        Layouts().ParseLayoutFile(m_data.Path() + "Layouts/" + name);
        const bool isFound = std::string(c.what) == "other nodes" || !Layouts().RetrieveLayout("bad").empty();
        EXPECT_EQ(isFound, std::string(c.what) == "other nodes") << c.what;
    }
    // The entities stay unread; what is around them counts.
    m_data.Write("Layouts/bomb.xml", bomb + "]>" + File("Bomb", "<Label id='l' x='0' y='0' text='&e29;'/>"));
    Layouts().ParseLayoutFile(m_data.Path() + "Layouts/bomb.xml");
    const std::list<WidgetPtr> widgets = Layouts().RetrieveLayout("Bomb");
    ASSERT_EQ(widgets.size(), 1U);
    EXPECT_EQ(widgets.front()->GetProperty("Text", ""), "&e29;");
    EXPECT_GE(Gfx::Layout::CheckLayouts(m_data.Path()).size(), 13U);
}

TEST_F(LayoutFaultsTest, ADirectoryThatIsAFileHasNoLayouts)
{
    Layouts().ApplyLayout("something, for the log");
    m_data.Write("Layouts", "<Layouts/>");
    m_data.Write("more/Layouts/folder.xml/a", "");
    Layouts().Initialise(m_data.Path());
    Layouts().Initialise(m_data.Path() + "more/");
    EXPECT_EQ(GfxTest::CountLogs("folder.xml: Is a directory"), 1);
    EXPECT_TRUE(Gfx::Layout::CheckLayouts(m_data.Path()).empty());
}

/// A layout with something of everything.
const std::string k_everything =
    "<?xml version='1.0' encoding='UTF-8'?>\n<Layouts><Layout id='Everything'>"
    "<Panel id='p' x='0' y='0' width='300' height='90' allowScrolling='True' autoSize='True'><!-- &amp; -->"
    "<Button id='b' x='1' y='2' text='&lt;b>&#228;' image='Icon' textureSet='S'><TextureSet id='S'><Inactive>Icon"
    "</Inactive><Hover>Icon</Hover><Active>Icon</Active></TextureSet><Font><Size>20</Size></Font><Events><Click>"
    "<Condition type='&lt;=' lhs='l>Opacity' rhs='9'><Stop/></Condition><Property name='Text' value='x'/></Click>"
    "</Events></Button><RadioGroup><RadioButton id='r' x='0' y='0' checked='True'/></RadioGroup>"
    "<ListBox id='l' x='9' y='9' width='99' height='99'><Items><Item id='a' text='A'/></Items></ListBox></Panel>"
    "<Scrollbar id='s' x='5' y='5' minimum='1' maximum='9' step='2'/><Graph id='g' x='0' y='0' autoScaleX='Slide'/>"
    "<Window id='w' x='0' y='0' width='99' height='99' title='T'><Label id='l' x='0' y='0'/></Window>"
    "</Layout></Layouts>\n";

TEST_F(LayoutFaultsTest, AFileMayEndAnywhere)
{
    ASSERT_TRUE(Make(k_everything));
    for (std::size_t length = 0; length < k_everything.size() - 1; ++length)
    {
        EXPECT_FALSE(Make(k_everything.substr(0, length))) << length;
    }
}

TEST_F(LayoutFaultsTest, AnyByteMayBeWrong)
{
    int made = 0;
    for (const char wrong : {'\0', '<', '\'', '\xFF', '9'})
    {
        for (std::size_t i = 0; i < k_everything.size(); ++i)
        {
            std::string text = k_everything;
            text[i] = wrong;
            made += Make(text) ? 1 : 0;
        }
    }
    // Most of the nines.
    EXPECT_GT(made, 500);
}

TEST_F(LayoutFaultsTest, FloodsAreMade)
{
    std::string attributes;
    std::string elements;
    std::string items = "<Items>";
    for (int i = 0; i < 100'000; ++i)
    {
        attributes += " a" + std::to_string(i) + "=''";
    }
    for (int i = 0; i < 10'000; ++i)
    {
        elements += "<Label id='l" + std::to_string(i) + "' x='" + std::to_string(i % 800) + "' y='0'/>";
    }
    for (int i = 0; i < 1'500; ++i)
    {
        items += "<Item id='i" + std::to_string(i) + "'/>";
    }
    EXPECT_EQ(Show("Attributes", "<Label id='l' x='0' y='0'" + attributes + "/>").size(), 1U);
    EXPECT_EQ(Show("Elements", "<Panel id='elements' x='0' y='0'>" + elements + "</Panel>").size(), 1U);
    EXPECT_TRUE(Widgets().FindWidget("elements:l9999", nullptr));
    // More items on show than anybody means.
    items += "</Items>";
    EXPECT_EQ(Show("Lists", "<ListGrid id='g' x='0' y='0' width='4000' height='4000' btnWidth='1' btnHeight='1'>" +
                                items + "</ListGrid><ListBox id='b' x='0' y='0' width='9' height='9999999'>" + items +
                                "</ListBox>")
                  .size(),
              2U);
    EXPECT_TRUE(Widgets().FindWidget("g:i1499", nullptr));
    EXPECT_TRUE(Widgets().FindWidget("b:i1499", nullptr));
    const std::list<WidgetPtr> deep = Show(
        "Deep", Repeat("<Panel id='p' x='1' y='1' width='9' height='9' autoSize='True' allowScrolling='True'>", 250) +
                    Repeat("</Panel>", 250));
    ASSERT_EQ(deep.size(), 1U);
    Settle();
    for (const char* action : {"Condition type='==' lhs='1' rhs='1'", "Condition type='&lt;' lhs='1' rhs='2'"})
    {
        const std::string word = "Condition";
        const std::string id = std::string("Nest") + action[16];
        const std::list<WidgetPtr> nest =
            Show(id, AtHide(Repeat(std::string("<") + action + '>', 240) + "<SetFlag id='nest' value='" + id + "'/>" +
                            Repeat("</Condition>", 240)));
        ASSERT_EQ(nest.size(), 1U);
        nest.front()->Hide();
        EXPECT_EQ(Layouts().GetFlag("nest"), id);
    }
}

TEST_F(LayoutFaultsTest, NamesMayBeLong)
{
    const std::string name(1'000'000, 'n');
    const std::list<WidgetPtr> widgets =
        Show("Long", "<Panel id='" + name + "' x='0' y='0'><Label id='" + name + "' x='0' y='0' text='" + name +
                         "'><Events><Hide><Property value='" + name + "'/><BringToFront id='" + name +
                         "'/><SetFlag/><Condition type='" + name + "' lhs='" + name +
                         "&gt;Visible'/></Hide></Events>"
                         "</Label><Label id='" +
                         name + "' x='0'/></Panel>");
    ASSERT_EQ(widgets.size(), 1U);
    const WidgetPtr label = Widgets().FindWidget(name + ':' + name, nullptr);
    ASSERT_TRUE(label);
    label->Hide();
    EXPECT_EQ(Layouts().GetFlag(name), name);
}

TEST_F(LayoutFaultsTest, AChainOfLayoutsComesToAnEnd)
{
    std::string layouts;
    for (int i = 0; i < 2'000; ++i)
    {
        const std::string number = std::to_string(i);
        layouts += "<Layout id='Chain" + number + "'><Panel id='c" + number +
                   "' x='0' y='0'><Events><Selected><ActivateLayout id='Chain" + std::to_string(i + 1) +
                   "'/></Selected></Events></Panel></Layout>";
    }
    Layouts().ParseLayoutFile(m_data.Write("chain.xml", "<Layouts>" + layouts + "</Layouts>"));
    Layouts().ApplyLayout("Chain0");
    EXPECT_EQ(GfxTest::CountLogs("run each other without end"), 1);
    EXPECT_TRUE(Widgets().FindWidget("c0", nullptr));
    EXPECT_TRUE(Widgets().FindWidget("c512", nullptr));
}

} // namespace

#include "Managers/Layout/LayoutManager.h"

#include "Core/IO/XMLDocument.h"
#include "Layout/ButtonElement.h"
#include "Layout/KeyboardElement.h"
#include "Layout/LabelElement.h"
#include "Layout/PanelElement.h"
#include "Widgets/Controls/Button/Button.h"
#include "Widgets/Controls/Keyboard/OnScreenKeyboard.h"
#include "Widgets/Controls/Label/Label.h"
#include "Widgets/Controls/Panel/Panel.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <set>

namespace
{

using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;
using Gfx::Managers::CLayoutManager;
using GfxTest::WidgetPtr;

class LayoutManagerTest : public GfxTest::CControlTest
{
protected:
    static CLayoutManager& Layouts() { return StaticSingleton<CLayoutManager>::ref(); }

    /// A file of one layout with one label of the layout's name.
    static std::string File(const std::string& a_id)
    {
        return "<Layouts><Layout id='" + a_id + "'><Label id='" + a_id + "' x='0' y='0' text='" + a_id +
               "'/></Layout></Layouts>";
    }

    /// The text of the first widget of a layout; "none" if there is none.
    static std::string FirstText(const std::string& a_layout)
    {
        const std::list<WidgetPtr> widgets = Layouts().RetrieveLayout(a_layout);
        return widgets.empty() ? "none" : widgets.front()->GetProperty("Text", "");
    }
};

TEST_F(LayoutManagerTest, FilesAreFoundByTheirExactEnding)
{
    const GfxTest::CTemporaryDirectory data;
    for (const char* name : {"a.xml", "b.c.xml", ".xml", "d.xml.bak", "e.XML", "xml", "f."})
    {
        data.Write(std::string("Layouts/") + name, File(name));
    }
    data.Write("Layouts/broken.xml", "<Layouts><Layout");
    data.Write("Layouts/empty.xml", "<Layouts/>");
    data.Write("Layouts/other.xml", "<Others><Layout id='other'/></Others>");
    GfxTest::ExpectLog("broken.xml");
    Layouts().Initialise(data.Path());
    Layouts().Initialise(data.Path() + "missing/");
    std::set<std::string> found;
    for (const char* name : {"a.xml", "b.c.xml", ".xml", "d.xml.bak", "e.XML", "xml", "f.", "other"})
    {
        if (FirstText(name) == name)
        {
            found.insert(name);
        }
    }
    EXPECT_EQ(found, (std::set<std::string>{"a.xml", "b.c.xml", ".xml"}));
}

TEST_F(LayoutManagerTest, ALayoutIsMadeOnceAndKeepsItsState)
{
    const GfxTest::CTemporaryDirectory data;
    data.Write("one.xml", File("Once"));
    data.Write("two.xml", "<Layouts><Layout id='Once'><Label id='Once' x='0' y='0' text='later'/></Layout>"
                          "<Layout id='Empty'/><Layout><Label id='x' x='0' y='0'/></Layout></Layouts>");
    Layouts().ParseLayoutFile(data.Path() + "one.xml");
    Layouts().ParseLayoutFile(data.Path() + "two.xml");
    GfxTest::ExpectLog("CLayoutManager::ApplyLayout parsing layout");
    GfxTest::ExpectLog("CLayoutManager::ApplyLayout layout parsed");
    Layouts().ApplyLayout("Once");
    const WidgetPtr label = Widgets().FindWidget("Once", nullptr);
    ASSERT_TRUE(label);
    EXPECT_EQ(label->GetProperty("Text", ""), "later") << "the one that was read last";
    label->SetProperty("Text", "changed");
    Layouts().ParseLayoutFile(data.Path() + "one.xml");
    Layouts().ApplyLayout("Once");
    EXPECT_EQ(Widgets().FindWidget("Once", nullptr), label);
    EXPECT_EQ(FirstText("Once"), "changed");
    Layouts().ApplyLayout("Empty");
    Layouts().ApplyLayout("Empty");
    EXPECT_EQ(GfxTest::CountLogs("parsing layout"), 2);
    testing::internal::CaptureStderr();
    GfxTest::ExpectLog("A layout node as encountered without an id. This is invalid");
    Layouts().ApplyLayout("");
    const std::string output = testing::internal::GetCapturedStderr();
    EXPECT_NE(output.find("CLayoutManager::ApplyLayout: could not find layout \n"), std::string::npos) << output;
    EXPECT_TRUE(Layouts().RetrieveLayout("unknown").empty());
    Widgets().DestroyWidget(label.Get());
}

TEST_F(LayoutManagerTest, ALayoutThatIsMadeAgainLeavesTheFormerWidgetsWorking)
{
    const GfxTest::CTemporaryDirectory data;
    Core::IO::XMLDocument document;
    ASSERT_TRUE(document.Parse(data.Write(
        "again.xml", "<Layout id='Again'><Panel id='p' x='0' y='0'><Events><NonClientHit><SetFlag id='besideAgain' "
                     "value='hit'/></NonClientHit><Hide><SetFlag id='again' value='hidden'/></Hide></Events></Panel>"
                     "</Layout>")));
    const XMLNode* const layout = document.Section("Layout");
    ASSERT_NE(layout, nullptr);
    Layouts().ParseLayoutNode(*layout);
    const WidgetPtr former = Layouts().RetrieveLayout("Again").front();
    AddToStage(former);
    Layouts().ParseLayoutNode(*layout);
    EXPECT_NE(Layouts().RetrieveLayout("Again").front(), former);
    former->Hide();
    EXPECT_EQ(Layouts().GetFlag("again"), "hidden");
    Click(700, 400);
    EXPECT_EQ(Layouts().GetFlag("besideAgain"), "hit");
}

/// What an application adds: a kind of its own, and another button.
class CEchoElement : public Gfx::Layout::CElement
{
public:
    CElement* Process(CElement* a_parent, const XMLNode& a_node) override
    {
        if (!PreProcess(a_node))
        {
            return nullptr;
        }
        Attach(a_parent, Hidden(new Gfx::Widgets::CLabel(Id(), X(), Y(), Width(), Height(), false, false, false,
                                                         a_node.Attribute("word", ""), true)));
        ProcessEventsOf(a_node);
        return this;
    }
};

class CNumberedButton : public Gfx::Layout::CButtonElement
{
public:
    void InitWidget(const XMLNode& a_node) override
    {
        CButtonElement::InitWidget(a_node);
        Button().Text("No. " + a_node.Attribute("number", ""));
    }
};

/// One that keeps its widget itself.
class COwnPanelElement : public Gfx::Layout::CPanelElement
{
public:
    WidgetPtr Widget() override { return m_panel; }

    CElement* Process(CElement* a_parent, const XMLNode& a_node) override
    {
        if (!PreProcess(a_node))
        {
            return nullptr;
        }
        m_panel = WidgetPtr(new Gfx::Widgets::CPanel(Id(), X(), Y(), 20, 20, false, false));
        a_parent->Widget()->AddChild(m_panel);
        ProcessContent(a_node, [this](const XMLNode& a_events) { ProcessEvents(a_events); });
        return this;
    }

private:
    WidgetPtr m_panel;
};

/// One that makes a keyboard of its own.
class COwnKeyboardElement : public Gfx::Layout::CKeyboardElement
{
public:
    CElement* Process(CElement* a_parent, const XMLNode& a_node) override
    {
        if (!PreProcess(a_node))
        {
            return nullptr;
        }
        Attach(a_parent, Hidden(new Gfx::Widgets::COnScreenKeyboard(Id(), X(), Y(), "Numbers", "Default", "")));
        ProcessContent(a_node, [this](const XMLNode& a_events) { ProcessEvents(a_events); });
        return this;
    }
};

TEST_F(LayoutManagerTest, AnApplicationAddsKindsOfElementsAndReplacesThem)
{
    using Constructor = CLayoutManager::ElementConstructor::Function;
    static Constructor s_echo(&Gfx::Managers::ElementBuilder<CEchoElement>);
    static Constructor s_numbered(&Gfx::Managers::ElementBuilder<CNumberedButton>);
    static Constructor s_panel(&Gfx::Managers::ElementBuilder<COwnPanelElement>);
    Layouts().RegisterElementConstructor("Echo", &s_echo);
    Layouts().RegisterElementConstructor("OwnPanel", &s_panel);
    Layouts().RegisterElementConstructor("Numbered", &s_numbered);
    const GfxTest::CTemporaryDirectory data;
    data.Write(
        "own.xml",
        "<Layouts><Layout id='Own'><Panel id='p' x='0' y='0' width='100' height='100'>"
        "<Echo id='e' x='0' y='0' word='hello'><Events><Show><SetFlag id='echo' value='seen'/></Show>"
        "</Events></Echo><Numbered id='n' x='0' y='0' number='7'/>"
        "<OwnPanel id='o' x='0' y='50'><Events><Selected><Property name='Opacity' value='50'/>"
        "</Selected><Hide><SetFlag id='own' value='hidden'/></Hide></Events></OwnPanel></Panel></Layout></Layouts>");
    Layouts().ParseLayoutFile(data.Path() + "own.xml");
    const std::list<WidgetPtr> widgets = Layouts().RetrieveLayout("Own");
    ASSERT_EQ(widgets.size(), 1U);
    Gfx::Widgets::CWidget* const panel = widgets.front().Get();
    const WidgetPtr echo = Widgets().FindWidget("e", panel);
    ASSERT_TRUE(echo);
    EXPECT_EQ(echo->GetProperty("Text", ""), "hello");
    echo->Hide();
    echo->Show();
    EXPECT_EQ(Layouts().GetFlag("echo"), "seen");
    const WidgetPtr numbered = Widgets().FindWidget("n", panel);
    ASSERT_TRUE(numbered);
    EXPECT_EQ(static_cast<Gfx::Widgets::CButton&>(*numbered).Text(), "No. 7");
    const WidgetPtr own = Widgets().FindWidget("o", panel);
    ASSERT_TRUE(own);
    AddToStage(widgets.front());
    Widgets().Select(own);
    EXPECT_EQ(own->GetProperty("Opacity", ""), "50");
    own->Hide();
    EXPECT_EQ(Layouts().GetFlag("own"), "hidden");
}

TEST_F(LayoutManagerTest, AKeyboardOfAnApplicationsOwnKindRunsTheActionsOfItsClosing)
{
    static CLayoutManager::ElementConstructor::Function s_keyboard(&Gfx::Managers::ElementBuilder<COwnKeyboardElement>);
    Layouts().RegisterElementConstructor("OwnKeyboard", &s_keyboard);
    const GfxTest::CTemporaryDirectory data;
    data.Write("keys.xml", "<Layouts><Layout id='OwnKeys'><OwnKeyboard id='own' x='0' y='0'><Events><ClosingDone>"
                           "<SetFlag id='ownClosing' value='done'/></ClosingDone><ClosedDone><SetFlag id='ownClosed' "
                           "value='done'/></ClosedDone></Events></OwnKeyboard></Layout></Layouts>");
    Layouts().ParseLayoutFile(data.Path() + "keys.xml");
    const std::list<WidgetPtr> widgets = Layouts().RetrieveLayout("OwnKeys");
    ASSERT_EQ(widgets.size(), 1U);
    AddToStage(widgets.front());
    const WidgetPtr done = Widgets().FindWidget("own:WindowPanel:Done", nullptr);
    ASSERT_TRUE(done);
    done->MouseEvent(Gfx::Events::FirstClick, 1, {}, false);
    EXPECT_EQ(Layouts().GetFlag("ownClosing"), "done");
    EXPECT_EQ(Layouts().GetFlag("ownClosed"), "done");
}

TEST_F(LayoutManagerTest, AFontOverridesWhatItNamesAndAThemesColourStays)
{
    const GfxTest::CTemporaryDirectory data;
    data.Write("font.xml", "<Layouts><Layout id='Font'><Label id='l' x='0' y='0'><Font><Size>9</Size><Size>31px</Size>"
                           "<Colour>\n  Ink\n</Colour><Alignment>Bottom,Right</Alignment></Font></Label>"
                           "<Label id='m' x='0' y='0'><Font><Name>Serif</Name><Colour>Red</Colour></Font></Label>"
                           "<Label id='n' x='0' y='0'><Font><ThemeColour> Red </ThemeColour></Font></Label>"
                           "</Layout></Layouts>");
    Layouts().ParseLayoutFile(data.Path() + "font.xml");
    const std::list<WidgetPtr> widgets = Layouts().RetrieveLayout("Font");
    ASSERT_EQ(widgets.size(), 3U);
    auto& first = static_cast<Gfx::Widgets::CLabel&>(*widgets.front());
    auto& second = static_cast<Gfx::Widgets::CLabel&>(**std::next(widgets.begin()));
    auto& third = static_cast<Gfx::Widgets::CLabel&>(*widgets.back());
    EXPECT_EQ(first.Font().AsString(), "Sans 31px");
    EXPECT_TRUE(first.Font().colour == Gfx::Colours::White);
    EXPECT_EQ(first.Font().alignment, 0x33);
    EXPECT_EQ(second.Font().AsString(), "Serif 16px");
    EXPECT_TRUE(second.Font().colour == Gfx::Colours::Red);
    EXPECT_TRUE(third.Font().colour == Gfx::Colours::Red);
    second.UpdateStyle();
    third.UpdateStyle();
    EXPECT_TRUE(second.Font().colour == Gfx::Colours::White) << "its own name for a colour has stayed";
    EXPECT_TRUE(third.Font().colour == Gfx::Colours::Red);
}

TEST_F(LayoutManagerTest, OfTwoTexturesForOnePartOfAScrollBarTheLastCounts)
{
    const GfxTest::CTemporaryDirectory data;
    data.Write("bar.xml", "<Layouts><Layout id='Bar'><Image id='i' x='0' y='0' width='100' height='100' image='Icon'/>"
                          "<Scrollbar id='s' x='0' y='100' width='300' height='60'><TextureSet><Bar>Red_Up</Bar>"
                          "<Bar>\n  Icon\n</Bar></TextureSet></Scrollbar></Layout></Layouts>");
    Layouts().ParseLayoutFile(data.Path() + "bar.xml");
    for (const WidgetPtr& widget : Layouts().RetrieveLayout("Bar"))
    {
        AddToStage(widget);
    }
    const GfxTest::CPicture picture = FreshPicture();
    EXPECT_EQ(picture.At(200, 130), picture.At(50, 50));
}

TEST_F(LayoutManagerTest, EveryStandardElementDescribesItself)
{
    std::string words;
    for (const Gfx::Managers::SStandardElement& kind : Gfx::Managers::StandardElements())
    {
        words += std::string(kind.type) + ' ';
        std::set<std::string> names;
        for (const Gfx::Layout::SAttributeInfo& attribute : kind.make()->Attributes())
        {
            EXPECT_TRUE(names.insert(attribute.name).second) << kind.type << ": " << attribute.name;
            EXPECT_FALSE(attribute.description.empty()) << kind.type << ": " << attribute.name;
        }
    }
    EXPECT_EQ(words, "Frame3D Button CheckBox EditBox Graph Image Keyboard Label ListBox ListGrid Panel ProgressBar "
                     "RadioGroup Scrollbar TextBox Window WizardStage ");
    EXPECT_EQ(Gfx::Layout::CElement::ActionWords().size(), 11U);
}

} // namespace

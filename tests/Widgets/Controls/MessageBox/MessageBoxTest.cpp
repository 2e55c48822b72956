#include "Widgets/Controls/MessageBox/MessageBox.h"

#include "support/StageTest.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace
{

using Gfx::Common::CAABB;
using Gfx::Widgets::CMessageBox;
using GfxTest::WidgetPtr;

class MessageBoxTest : public GfxTest::CStageTest
{
protected:
    static void SetUpTestSuite()
    {
        SetUpConfiguredStage("<Controls><MessageBox><Buttons><Width>101</Width><Opacity>40</Opacity></Buttons>"
                             "<Opacity>60</Opacity></MessageBox></Controls>");
    }

    /// A box of 400 by 300 in the middle of the display, at (200, 90).
    CMessageBox* Show(const std::string& a_btn1, const std::string& a_btn2, const std::string& a_btn3)
    {
        return Widgets().ShowMessageBox(400, 300, "Title", "<b>Text</b>", m_handler.get(), a_btn1, a_btn2, a_btn3);
    }

    static WidgetPtr Find(CMessageBox* a_box, const std::string& a_name)
    {
        return Widgets().FindWidget(a_box, {"WindowPanel", a_name});
    }

    static bool IsOpen() { return static_cast<bool>(Widgets().FindWidget("WidgetMgrMessage", nullptr)); }

    std::function<void(int)> m_onOption = [](int) {};
    std::unique_ptr<CMessageBox::OptionHandler> m_handler{
        Core::Functor<void, int>::Make([this](int a_option) { m_onOption(a_option); })};
};

TEST_F(MessageBoxTest, CaptionsDecideWhichButtonsThereAreAndWhere)
{
    // In the middle each half is truncated by itself: 200 - 50.
    const std::vector<std::vector<int>> lefts{{-1, -1, -1},  {289, -1, -1}, {-1, 289, -1},  {10, 289, -1},
                                              {-1, -1, 289}, {10, -1, 289}, {-1, 289, 289}, {10, 150, 289}};
    for (std::size_t mask = 0; mask < lefts.size(); ++mask)
    {
        CMessageBox* const box =
            Show((mask & 1U) != 0 ? "a" : "", (mask & 2U) != 0 ? "b" : "", (mask & 4U) != 0 ? "c" : "");
        for (std::size_t i = 0; i < 3; ++i)
        {
            const WidgetPtr button = Find(box, "MessageBoxBtn" + std::to_string(i + 1));
            EXPECT_EQ(button ? button->TopLeft().X() : -1, lefts[mask][i]) << mask;
            EXPECT_EQ(button ? button->TopLeft().Y() : 200, 200);
            EXPECT_EQ(button ? button->GetTransparency() : 40, 40);
        }
        box->Close();
        EXPECT_FALSE(IsOpen());
    }
}

TEST_F(MessageBoxTest, TheTextAreaFillsWhatMarginsAndButtonsLeave)
{
    CMessageBox* const box = Show("OK", "", "");
    const WidgetPtr area = Find(box, "MsgBoxTextArea");
    EXPECT_EQ(area->AABB(), CAABB(210, 100, 380, 300 - 10 - 2 * 20 - 80));
    EXPECT_EQ(area->GetProperty("ParseMarkup", ""), "True");
    EXPECT_EQ(area->GetProperty("Text", ""), "<b>Text</b>");
    EXPECT_TRUE(Widgets().FindWidget(area.Get(), {"PanelScrollBar"}));
    EXPECT_EQ(box->GetTransparency(), 60);
    box->Close();
}

TEST_F(MessageBoxTest, ACaptionWithTheWordImageIsOneCutAfterSixCharacters)
{
    for (const auto& [caption, text, image] : std::vector<std::array<std::string, 3>>{
             {"Image: Icon ", "", "Icon"}, {"xyImage:Icon", "", "e:Icon"}, {"Image", "Image", ""}, {"Image:", "", ""}})
    {
        CMessageBox* const box = Show("", caption, "");
        EXPECT_EQ(Find(box, "MessageBoxBtn2")->GetCustomInfo().at("Text"), text) << caption;
        EXPECT_EQ(Find(box, "MessageBoxBtn2")->GetCustomInfo().at("Image"), image) << caption;
        box->Close();
    }
}

TEST_F(MessageBoxTest, ItIsCentredTowardsZeroAndKeepsItsSize)
{
    for (const CAABB& place :
         {CAABB(199, 89, 401, 301), CAABB(0, 0, 801, 481), CAABB(-1, -2, 803, 485), CAABB(395, 245, 10, -10)})
    {
        CMessageBox* const box =
            Widgets().ShowMessageBox(place.Width(), place.Height(), "", "Text", nullptr, "a", "b", "c");
        box->Resize(20, 20);
        EXPECT_EQ(box->AABB(), place);
        Settle();
        box->Close();
    }
}

TEST_F(MessageBoxTest, AnyClickOnAButtonClosesItAndOneOfTheFirstButtonIsReported)
{
    std::vector<int> options;
    m_onOption = [&options](int a_option) { options.push_back(IsOpen() ? -1 : a_option); };
    for (const int x : {220, 400, 500})
    {
        for (const int buttons : {2, 3})
        {
            Show("a", "b", "c");
            Click(50, 50);
            Click(300, 120);
            EXPECT_TRUE(IsOpen()) << "beside it, and on its text";
            Widgets().MouseEvent(Gfx::Events::FirstDown, buttons, {x, 300}, false);
            Widgets().MouseEvent(Gfx::Events::FirstUp, buttons, {x, 300}, false);
            EXPECT_FALSE(IsOpen());
        }
    }
    EXPECT_EQ(options, (std::vector<int>{1, 2, 3}));
}

TEST_F(MessageBoxTest, ItLivesThroughItsHandlerByWhateverRoadTheClickComes)
{
    CMessageBox* const box = Show("a", "", "");
    int calls = 0;
    m_onOption = [&](int) { calls += box->GetCustomInfo().at("Button1") == "a" ? 1 : 0; };
    const WidgetPtr button = Find(box, "MessageBoxBtn1");
    button->MouseEvent(Gfx::Events::FirstClick, 1, {5, 5}, false);
    // The button that is left has nobody to tell of clicks.
    button->MouseEvent(Gfx::Events::FirstClick, 1, {5, 5}, false);
    EXPECT_EQ(calls, 1);
    // Nobody but the selection holds a box that was never shown.
    m_onOption = [&calls](int) { ++calls; };
    auto* const hidden = new CMessageBox("box", 0, 0, 400, 300, "", "", "a", "", "");
    hidden->SetOptionSelectedEventHandler(m_handler.get());
    Widgets().Select(WidgetPtr(hidden));
    hidden->Btn1Click(nullptr, 1, {}, false);
    EXPECT_EQ(calls, 2);
}

} // namespace

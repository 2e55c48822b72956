#include "Widgets/Controls/Wizard/Wizard.h"

#include "Widgets/Controls/Wizard/WizardStage.h"
#include "support/StageTest.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace
{

using Gfx::Common::CAABB;
using Gfx::Widgets::CWidget;
using Gfx::Widgets::CWizard;
using Gfx::Widgets::CWizardStage;
using GfxTest::CBlock;
using GfxTest::WidgetPtr;

/// A wizard of two stages, "one" and "two", and something else, "block"; what they do is logged.
class WizardTest : public GfxTest::CStageTest
{
protected:
    static void SetUpTestSuite() { SetUpConfiguredStage("<Controls><Wizard><Margin>12</Margin></Wizard></Controls>"); }

    void SetUp() override
    {
        CStageTest::SetUp();
        m_wizard = new CWizard("wizard");
        Widgets().AddWidget(WidgetPtr(m_wizard));
        m_wizard->SetNavigateEventHandler(m_navigate.get());
        for (const char* name : {"one", "two"})
        {
            const Core::SharedPtr<CWizardStage> stage(new CWizardStage(name, false));
            stage->SetEnterEventHandler(m_enter.get());
            stage->SetLeaveEventHandler(m_leave.get());
            m_wizard->AddChild(stage);
        }
        AddChild(*m_wizard, new CBlock("block", 0, 0, 50, 50, Gfx::Colours::Lime));
    }

    void TearDown() override
    {
        Widgets().DestroyWidget(Widgets().FindWidget("wizard", nullptr).Get());
        CStageTest::TearDown();
    }

    [[nodiscard]] WidgetPtr Find(const std::string& a_name) const
    {
        return Widgets().FindWidget(m_wizard, {"WindowPanel", a_name});
    }

    void Log(const std::string& a_line)
    {
        m_log += (m_log.empty() ? "" : ", ") + a_line;
        m_onLog(a_line);
    }

    std::string TakeLog() { return std::exchange(m_log, ""); }

    CWizard* m_wizard = nullptr;
    std::string m_answer;
    std::string m_log;
    std::function<void(const std::string&)> m_onLog = [](const std::string&) {};
    std::unique_ptr<CWizard::NavigateHandler> m_navigate{
        Core::Functor<const std::string, bool, const std::string&>::Make(
            [this](bool a_forwards, const std::string& a_current) -> const std::string
            {
                Log(std::string(a_forwards ? ">" : "<") + a_current);
                return m_answer;
            })};
    std::unique_ptr<CWidget::NotifyHandler> m_enter{Core::Functor<void, CWidget*>::Make(
        [this](CWidget* a_stage) { Log((a_stage->Visible() ? "+" : "hidden +") + a_stage->Name()); })};
    std::unique_ptr<CWidget::NotifyHandler> m_leave{Core::Functor<void, CWidget*>::Make(
        [this](CWidget* a_stage) { Log((a_stage->Visible() ? "-" : "hidden -") + a_stage->Name()); })};
};

TEST_F(WizardTest, ItFillsTheDisplayWithItsButtonsInTheCornersAndItsStagesAbove)
{
    EXPECT_EQ(Find("Backwards")->AABB(), CAABB(12, 388, 80, 80));
    EXPECT_EQ(Find("Forwards")->AABB(), CAABB(708, 388, 80, 80));
    EXPECT_EQ(Find("one")->AABB(), CAABB(10, 10, 780, 370));
    EXPECT_FALSE(Find("one")->Visible());
    EXPECT_FALSE(Find("one").StaticCast<CWizardStage>()->Background());
    EXPECT_EQ(FreshPicture().Extent({200, 100, 0, 255}), "20,396 64 x 64") << "the image of the button back";
    EXPECT_TRUE(m_wizard->Modal());
    m_wizard->SetProperty("Colour", "green");
    EXPECT_TRUE(m_wizard->GetCustomInfo().empty());
    m_wizard->ToggleButtons(false, true);
    EXPECT_NE(Find("Backwards")->Visible(), Find("Forwards")->Visible());
}

TEST_F(WizardTest, EachStepAsksWhereItLeads)
{
    // At first there is no stage, so an empty answer names the current one.
    for (const auto& [answer, log] : {std::pair("", ">"),
                                      {"one", ">, +one"},
                                      {"two", ">one, -one, +two"},
                                      {"two", ">two"},
                                      {"unknown", "<two"},
                                      {"one", "<two, -two, +one"},
                                      {"block", ">one, -one"},
                                      {"two", "<block, +two"},
                                      {"", ">two, -two"}})
    {
        EXPECT_TRUE(m_wizard->Visible()) << log;
        m_answer = answer;
        Click(log[0] == '>' ? 750 : 50, 430);
        EXPECT_EQ(TakeLog(), log);
    }
    EXPECT_FALSE(m_wizard->Visible());
    EXPECT_FALSE(Find("two")->Visible());
    // It starts again from the stage where it has ended.
    m_wizard->Show();
    m_wizard->SelectStage("two");
    m_wizard->SelectStage("two");
    EXPECT_EQ(TakeLog(), "hidden -two, +two, -two, +two");
    m_wizard->SetNavigateEventHandler(nullptr);
    Click(50, 430);
    EXPECT_EQ(TakeLog(), "-two");
    EXPECT_FALSE(m_wizard->Visible()) << "without a handler a step ends it";
}

TEST_F(WizardTest, WhatIsSelectedComesToTheFrontAndOnlyStagesAreShown)
{
    m_wizard->SelectStage("one");
    Find("one").StaticCast<CWizardStage>()->Background(true);
    EXPECT_EQ(FreshPicture().At(20, 20).Red(), 90) << "the stage covers the block";
    m_wizard->SelectStage("block");
    EXPECT_EQ(FreshPicture().At(20, 20), Gfx::Colours::Lime);
    // A handler may select the stage that it names.
    m_answer = "two";
    m_onLog = [this](const std::string& a_line) { a_line == ">block" ? m_wizard->SelectStage("two") : void(); };
    m_wizard->Progress();
    EXPECT_EQ(TakeLog(), "+one, -one, >block, +two");
}

TEST_F(WizardTest, AHandlerMayDestroyTheWizardAndWithItAllStages)
{
    for (const std::string fatal : {">one", "-one", "+two"})
    {
        m_wizard->SelectStage("one");
        m_answer = fatal == "-one" ? "" : "two";
        m_onLog = [this, fatal](const std::string& a_line) { a_line == fatal ? m_wizard->Destroy() : void(); };
        const WidgetPtr button = Find("Backwards");
        m_wizard->Progress();
        EXPECT_FALSE(Widgets().FindWidget("wizard", nullptr)) << fatal;
        TakeLog();
        button->MouseEvent(Gfx::Events::FirstClick, 1, {5, 5}, false);
        EXPECT_EQ(TakeLog(), "") << "the button that is left has nobody to lead on";
        SetUp();
    }
    // By a plain pointer, so that nobody but the wizard holds it.
    auto* const stage = static_cast<CWizardStage*>(Find("one").Get());
    const std::unique_ptr<CWidget::VetoableToggleHandler> onShow(Core::Functor<bool, CWidget*, bool>::Make(
        [this](CWidget* a_stage, bool) { return m_wizard->DestroyChild(a_stage), true; }));
    stage->SetVisibilityChangedEventHandler(onShow.get());
    stage->Enter();
    EXPECT_EQ(TakeLog(), "") << "it was shown only, and not entered";
}

} // namespace

// Runs the cases in tests/data/LayoutCases. A case is a file of layouts with steps behind them, as
// support/LayoutSteps.h tells, and expectations between the steps:
//
//   Expect id name value   a property
//   Flag name value
//   Gone id                there is no such widget
//   Notified text          what the handlers have been told since the last such step: "name parameter widget;..."
//   Output text            a line on standard output or error, anywhere in the case
//   Log text               a log line, anywhere in the case

#include "Core/IO/XMLDocument.h"
#include "Layout/NumericEditBoxElement.h"
#include "Managers/Layout/LayoutManager.h"
#include "support/LayoutSteps.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"

#include <filesystem>
#include <optional>

namespace
{

using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;
using Gfx::Managers::CLayoutManager;
using GfxTest::WidgetPtr;

const std::string k_folder = GFX_TEST_DATA "LayoutCases/";

std::vector<std::string> Cases()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(k_folder))
    {
        names.push_back(entry.path().stem());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class LayoutCasesTest : public GfxTest::CControlTest, public testing::WithParamInterface<std::string>
{
protected:
    static void SetUpTestSuite()
    {
        CControlTest::SetUpTestSuite();
        static CLayoutManager::ElementConstructor::Function s_constructor(
            &Gfx::Managers::ElementBuilder<Gfx::Layout::CNumericEditBoxElement>);
        Layouts().RegisterElementConstructor("NumericEditBox", &s_constructor);
    }

    static CLayoutManager& Layouts() { return StaticSingleton<CLayoutManager>::ref(); }

    void TearDown() override
    {
        m_steps.reset();
        CControlTest::TearDown();
    }

    static WidgetPtr Find(const std::string& a_id)
    {
        const WidgetPtr widget = Widgets().FindWidget(a_id, nullptr);
        EXPECT_TRUE(widget) << a_id;
        return widget;
    }

    void Do(const XMLNode& a_step)
    {
        const auto text = [&a_step](const char* a_name) { return a_step.Attribute(a_name, ""); };
        const std::string& word = a_step.Name();
        if (word == "Expect")
        {
            EXPECT_EQ(Find(text("id"))->GetProperty(text("name"), "no such property"), text("value"))
                << text("id") << '>' << text("name");
        }
        else if (word == "Flag")
        {
            EXPECT_EQ(Layouts().GetFlag(text("name")), text("value")) << text("name");
        }
        else if (word == "Gone")
        {
            EXPECT_FALSE(Widgets().FindWidget(text("id"), nullptr)) << text("id");
        }
        else if (word == "Notified")
        {
            EXPECT_EQ(m_steps->TakeNotified(), text("text"));
        }
        else if (word == "Output")
        {
            m_outputs.push_back(text("text"));
        }
        else if (word == "Log")
        {
            GfxTest::ExpectLog(text("text"));
        }
        else
        {
            EXPECT_TRUE(m_steps->Do(a_step)) << word;
        }
    }

    /// Ends before the stage is cleared.
    std::optional<GfxTest::CLayoutSteps> m_steps{std::in_place};
    std::vector<std::string> m_outputs;
};

TEST_P(LayoutCasesTest, Runs)
{
    GfxTest::ExpectLog("CLayoutManager::ApplyLayout");
    const std::string path = k_folder + GetParam() + ".xml";
    Core::IO::XMLDocument document;
    ASSERT_TRUE(document.Parse(path));
    Layouts().ParseLayoutFile(path);
    const XMLNode* const steps = document.Section("Steps");
    ASSERT_NE(steps, nullptr);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    for (const XMLNode& step : steps->Children())
    {
        SCOPED_TRACE("line " + std::to_string(step.Line()));
        Do(step);
    }
    const std::string output = testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
    if (HasFailure())
    {
        // Failures are printed as they come, and were captured with the rest.
        std::printf("%s", output.c_str());
    }
    for (const std::string& line : m_outputs)
    {
        EXPECT_NE(output.find(line + '\n'), std::string::npos) << line << "\nin\n" << output;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, LayoutCasesTest, testing::ValuesIn(Cases()),
                         [](const testing::TestParamInfo<std::string>& a_info) { return a_info.param; });

} // namespace

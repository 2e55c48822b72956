// Runs the cases in tests/data/LayoutCases. A case is a file of layouts with steps behind them:
//
//   Apply id            makes a layout live
//   Tap x y             presses and releases
//   Type text           keys for the selected widget
//   Show id, Hide id    of a widget, by its full name
//   Set id name value   sets a property
//   SetFlag name value
//   Handler name result handles a notification, and answers with True or False; with "destroys" it first destroys the
//                       widget of that name, or all with "*"
//   Idle                an idle round
//
// and expectations between them:
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
#include "Widgets/Property.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"

#include <filesystem>
#include <map>
#include <memory>

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
        for (const auto& [name, handler] : m_handlers)
        {
            Layouts().RemoveNotificationHandler(name);
        }
        for (const std::string& id : m_applied)
        {
            for (const WidgetPtr& widget : Layouts().RetrieveLayout(id))
            {
                Widgets().DestroyWidget(widget.Get());
            }
        }
        while (const WidgetPtr box = Widgets().FindWidget("WidgetMgrMessage", nullptr))
        {
            Widgets().DestroyWidget(box.Get());
        }
        CControlTest::TearDown();
    }

    static WidgetPtr Find(const std::string& a_id)
    {
        const WidgetPtr widget = Widgets().FindWidget(a_id, nullptr);
        EXPECT_TRUE(widget) << a_id;
        return widget;
    }

    /// A child through its parent, as the toolkit asks for.
    static void Destroy(const std::string& a_id)
    {
        const WidgetPtr widget = Widgets().FindWidget(a_id, nullptr);
        if (widget && widget->Parent() != nullptr)
        {
            widget->Parent()->DestroyChild(widget);
        }
        else
        {
            Widgets().DestroyWidget(widget.Get());
        }
    }

    void Handle(const std::string& a_name, bool a_result, const std::string& a_destroys)
    {
        using Handler = Core::Functor<bool, WidgetPtr, const std::string&, const std::string&>;
        auto* const handler = Handler::Make(
            [this, a_result, a_destroys](const WidgetPtr& a_widget, const std::string& a_what,
                                         const std::string& a_parameter)
            {
                m_notified += a_what + ' ' + a_parameter + ' ' + a_widget->GetName() + ';';
                if (a_destroys == "*")
                {
                    for (const WidgetPtr& widget : Widgets().TopLevelWidgets())
                    {
                        Widgets().DestroyWidget(widget.Get());
                    }
                }
                else
                {
                    Destroy(a_destroys);
                }
                return a_result;
            });
        m_handlers[a_name].reset(handler);
        Layouts().AddNotificationHandler(a_name, handler);
    }

    void Do(const XMLNode& a_step)
    {
        const auto text = [&a_step](const char* a_name) { return a_step.Attribute(a_name, ""); };
        const std::string& word = a_step.Name();
        if (word == "Apply")
        {
            m_applied.push_back(text("id"));
            Layouts().ApplyLayout(text("id"));
        }
        else if (word == "Tap")
        {
            Click(Gfx::Widgets::NumberFromText(text("x")), Gfx::Widgets::NumberFromText(text("y")));
        }
        else if (word == "Type")
        {
            for (const char key : text("text"))
            {
                Widgets().KeyboardEvent(static_cast<unsigned char>(key));
            }
        }
        else if (word == "Show" || word == "Hide")
        {
            Find(text("id"))->SetShowHide(word == "Show");
        }
        else if (word == "Set")
        {
            Find(text("id"))->SetProperty(text("name"), text("value"));
        }
        else if (word == "SetFlag")
        {
            Layouts().SetFlag(text("name"), text("value"));
        }
        else if (word == "Handler")
        {
            Handle(text("name"), text("result") == "True", text("destroys"));
        }
        else if (word == "Idle")
        {
            Widgets().Idle();
        }
        else if (word == "Expect")
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
            EXPECT_EQ(std::exchange(m_notified, ""), text("text"));
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
            ADD_FAILURE() << "no such step: " << word;
        }
    }

    std::map<std::string, std::unique_ptr<CLayoutManager::NotificationHandler>> m_handlers;
    std::vector<std::string> m_applied;
    std::vector<std::string> m_outputs;
    std::string m_notified;
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

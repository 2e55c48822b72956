// What all controls have in common: property tables that fit together, and an end of what destroys one.

#include "Gfx/Gfx.h"
#include "support/StageTest.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace
{

using namespace Gfx::Widgets;
using GfxTest::WidgetPtr;

class PropertiesTest : public GfxTest::CControlTest
{
protected:
    /// One of each kind of control. A kind that isn't here isn't tested.
    static std::vector<WidgetPtr> Controls()
    {
        std::vector<WidgetPtr> controls{
            WidgetPtr(new C3DFrame("a", 0, 0, 50, 50, false)),
            WidgetPtr(new CButton("a", 0, 0, 50, 50, false)),
            WidgetPtr(new CCheckBox("a", 0, 0, 50, 50, "")),
            WidgetPtr(new CEditBox("a", 0, 0, 50, 50, false, "")),
            WidgetPtr(new CGraph("a", 0, 0, 50, 50, Gfx::easmOff, Gfx::easmSlide, false, false)),
            WidgetPtr(new CImage("a", 0, 0, 50, 50, "Icon")),
            WidgetPtr(new CLabel("a", 0, 0, 50, 50, false, false, false, "", true)),
            WidgetPtr(new CListBox("a", 0, 0, 50, 50, false)),
            WidgetPtr(new CListGrid("a", 0, 0, 50, 50, false)),
            WidgetPtr(new CMessageBox("a", 0, 0, 400, 300, "", "message", "Yes", "", "")),
            WidgetPtr(new CNumericEditBox("a", 0, 0, 50, 50, {})),
            WidgetPtr(new COnScreenKeyboard("a", 0, 0, "Letters", "", "")),
            WidgetPtr(new CPanel("a", 0, 0, 50, 50, false, false)),
            WidgetPtr(new CProgressBar("a", 0, 0, 50, 50, 0, 10, 5, true)),
            WidgetPtr(new CRadioButton("a", 0, 0, 50, 50, "")),
            WidgetPtr(new CScrollBar("a", 0, 0, 50, 200, false, 0, 10, 5, 1)),
            WidgetPtr(new CTextBox("a", 0, 0, 50, 50, false)),
            WidgetPtr(new CWindow("a", 0, 0, 50, 50, false, "", CWindow::ewfTitleBar)),
            WidgetPtr(new CWizard("a")),
        };
        for (const WidgetPtr& control : controls)
        {
            AddToStage(control);
        }
        return controls;
    }

    /// A value that the property doesn't have by itself.
    static std::string ValueFor(const std::string& a_name)
    {
        static const std::map<std::string, std::string> s_values{
            {"Visible", "False"},    {"Opacity", "40"},       {"Text", "a b"},
            {"Background", "True"},  {"ParseMarkup", "True"}, {"BackgroundTexture", "Icon"},
            {"Disabled", "True"},    {"TextureSet", "Other"}, {"Checked", "True"},
            {"ReadOnly", "True"},    {"Minimum", "3"},        {"Maximum", "7"},
            {"Current", "6"},        {"Step", "2"},           {"Title", "new title"},
            {"MaximumLength", "7"},  {"IsPassword", "True"},  {"SelectedItem", "b"},
            {"AutoScaleX", "Scale"}, {"AutoScaleY", "Off"},   {"ShowX", "True"},
            {"ShowY", "True"},       {"Picking", "True"},     {"Mode", "Time"},
            {"Layout", "Numbers"},
        };
        const auto value = s_values.find(a_name);
        return value != s_values.end() ? value->second : "";
    }
};

TEST_F(PropertiesTest, WhatIsSetIsReadBackAndNoNameComesTwice)
{
    for (const WidgetPtr& control : Controls())
    {
        // A keyboard is hidden at first.
        control->Show();
        if (auto* button = dynamic_cast<CButton*>(control.Get()))
        {
            button->SetTextures("Icon", "Icon", "Icon", "Other");
        }
        if (auto* list = dynamic_cast<CListBox*>(control.Get()))
        {
            list->AddItem({"b", ""}, true);
        }
        if (auto* grid = dynamic_cast<CListGrid*>(control.Get()))
        {
            grid->AddItem({"b", "", ""});
        }
        std::set<std::string> names;
        for (const SPropertyInfo& property : control->Properties())
        {
            const std::string name(property.name);
            SCOPED_TRACE(control->Type() + ": " + name);
            EXPECT_TRUE(names.insert(name).second);
            if (property.isReadable && property.isWritable)
            {
                const std::string value = ValueFor(name);
                ASSERT_NE(value, "") << "the test needs a value for this property";
                EXPECT_NE(control->GetProperty(name, "none"), value);
                control->SetProperty(name, value);
                EXPECT_EQ(control->GetProperty(name, "none"), value);
            }
            else if (property.isWritable)
            {
                control->SetProperty(name, "1");
                EXPECT_EQ(control->GetProperty(name, "none"), "none") << "taken, and not kept as a plain property";
            }
            else
            {
                EXPECT_NE(control->GetProperty(name, "none"), "none");
            }
        }
        EXPECT_EQ(names.count("Visible"), 1U) << "the base class is reached";
        control->SetProperty("Of the application", "x");
        EXPECT_EQ(control->GetProperty("Of the application", "none"), "x");
    }
}

TEST_F(PropertiesTest, UpdatesAndEventsEndWithAControlThatTheyDestroy)
{
    const auto destroyTopLevelOf = [](CWidget* a_widget)
    {
        while (a_widget->Parent() != nullptr)
        {
            a_widget = a_widget->Parent();
        }
        Widgets().DestroyWidget(a_widget);
    };
    class CFatalChild : public CWidget
    {
    public:
        CFatalChild(int& a_deaths, std::function<void(CWidget*)> a_destroy)
            : m_deaths(a_deaths), m_destroy(std::move(a_destroy))
        {
        }
        ~CFatalChild() override { ++m_deaths; }
        void UpdateStyle() override { m_destroy(this); }

    private:
        int& m_deaths;
        std::function<void(CWidget*)> m_destroy;
    };
    const std::unique_ptr<CWidget::ClickHandler> onClick(
        Core::Functor<void, CWidget*, int, const Gfx::Common::CPoint&, bool>::Make(
            [&](CWidget* a_widget, int, const Gfx::Common::CPoint&, bool) { destroyTopLevelOf(a_widget); }));
    const std::unique_ptr<CWidget::MouseHandler> onMouse(
        Core::Functor<void, CWidget*, Gfx::Events::EMouseEvent, int, const Gfx::Common::CPoint&, bool>::Make(
            [&](CWidget* a_widget, Gfx::Events::EMouseEvent, int, const Gfx::Common::CPoint&, bool)
            { destroyTopLevelOf(a_widget); }));
    Core::Functor<bool, CWidget*, int, int>::Callable onResize(
        [&](CWidget* a_widget, int, int)
        {
            destroyTopLevelOf(a_widget);
            return true;
        });
    std::vector<std::function<void(CWidget&)>> ways{
        [](CWidget& a_control) { a_control.UpdateStyle(); },
        [&](CWidget& a_control)
        {
            a_control.SetClickEventHandler(onClick.get());
            a_control.MouseEvent(Gfx::Events::FirstClick, 1, {5, 5}, false);
        },
        [&](CWidget& a_control)
        {
            a_control.SetResizeEventHandler(&onResize);
            // A message box keeps the size that it was made with.
            a_control.Type() == "MessageBox" ? destroyTopLevelOf(&a_control) : a_control.Resize(70, 60);
        },
    };
    using namespace Gfx::Events;
    for (const EMouseEvent event : {Move, FirstDown, FirstUp, FirstClick, Enter, Leave})
    {
        ways.emplace_back(
            [&onMouse, event](CWidget& a_control)
            {
                a_control.SetMouseEventHandler(onMouse.get());
                a_control.MouseEvent(event, 1, {5, 5}, false);
            });
    }
    for (const auto& way : ways)
    {
        std::vector<WidgetPtr> controls = Controls();
        ForgetTopLevels();
        while (!controls.empty())
        {
            int deaths = 0;
            // By a plain pointer, so that nobody but the manager holds it.
            CWidget& control = *controls.back();
            control.AddChild(WidgetPtr(new CFatalChild(deaths, destroyTopLevelOf)));
            const std::string type = control.Type();
            controls.pop_back();
            way(control);
            EXPECT_EQ(deaths, 1) << type << ", " << &way - ways.data();
        }
    }
}

} // namespace

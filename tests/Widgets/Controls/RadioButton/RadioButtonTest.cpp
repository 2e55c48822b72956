#include "Widgets/Controls/RadioButton/RadioButton.h"

#include "Widgets/Controls/RadioButton/RadioGroup.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <array>
#include <string>

namespace
{

using Gfx::Widgets::CRadioButton;
using Gfx::Widgets::CRadioGroup;
using ButtonPtr = Core::SharedPtr<CRadioButton>;
using GroupPtr = Core::SharedPtr<CRadioGroup>;

class RadioButtonTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        SetUpConfiguredStage("<Controls><CheckBox><Image><Width>50</Width></Image></CheckBox></Controls>");
    }

    static ButtonPtr Add(int a_index)
    {
        return AddTopLevel(
            new CRadioButton("radio" + std::to_string(a_index), 100, 100 + 40 * a_index, 200, 20, "Text"));
    }

    /// Which of the buttons are on, such as "010".
    template <std::size_t Count>
    static std::string State(const std::array<ButtonPtr, Count>& a_buttons)
    {
        std::string state;
        for (const ButtonPtr& button : a_buttons)
        {
            state += button->Checked() ? '1' : '0';
        }
        return state;
    }
};

TEST_F(RadioButtonTest, InAGroupAtMostOneIsOn)
{
    const std::array<ButtonPtr, 3> buttons{Add(0), Add(1), Add(2)};
    EXPECT_EQ(buttons[0]->Type(), "RadioButton");
    buttons[0]->Checked(true);
    buttons[1]->Checked(true);
    const GroupPtr group(new CRadioGroup);
    for (const ButtonPtr& button : buttons)
    {
        group->Add(button, group);
    }
    EXPECT_EQ(State(buttons), "010") << "the last one that is added checked wins";
    Click(110, 110 + 80);
    EXPECT_EQ(State(buttons), "001");
    Click(110, 110 + 80);
    EXPECT_EQ(State(buttons), "001") << "a click doesn't turn it off";
    buttons[0]->SetProperty("Checked", "True");
    EXPECT_EQ(State(buttons), "100");
    buttons[0]->Checked(false);
    EXPECT_EQ(State(buttons), "000") << "the application may turn off the last";
    buttons[1]->ReadOnly(true);
    Click(110, 110 + 40);
    EXPECT_EQ(State(buttons), "000");
    EXPECT_DEATH(group->Add(buttons[1], group), "it == m_buttons.end\\(\\)");
    for (const ButtonPtr& button : buttons)
    {
        button->SetGroup({});
    }
}

TEST_F(RadioButtonTest, LeavingAGroupTakesANeighbourOut)
{
    const GroupPtr group(new CRadioGroup);
    const ButtonPtr a = Add(0);
    const ButtonPtr b = Add(1);
    const ButtonPtr c = Add(2);
    group->Add(a, group);
    group->Remove(a.Get());
    EXPECT_EQ(group->Buttons().size(), 1U) << "with no other button nothing is removed";
    group->Add(b, group);
    group->Add(c, group);
    const GroupPtr other(new CRadioGroup);
    other->Add(b, other);
    ASSERT_EQ(group->Buttons().size(), 2U);
    EXPECT_EQ(group->Buttons()[0], b);
    EXPECT_EQ(group->Buttons()[1], c);
    b->Checked(true);
    c->Checked(true);
    EXPECT_FALSE(b->Checked()) << "still in the former group's list";
    for (const ButtonPtr& button : {a, b, c})
    {
        button->SetGroup({});
    }
}

TEST_F(RadioButtonTest, WithoutAGroupItCanOnlyBeTurnedOn)
{
    const ButtonPtr button = Add(0);
    Click(110, 110);
    Click(110, 110);
    EXPECT_TRUE(button->Checked());
    EXPECT_EQ(ShownExtent(Gfx::Colours::Lime), "104,104 12 x 12");
}

TEST_F(RadioButtonTest, ItsTextBeginsAtItsOwnImageAndHasTheWidthOfACheckBoxs)
{
    const ButtonPtr button = Add(0);
    ClutterActor* const text = clutter_actor_get_child_at_index(button->GetActor(), 0);
    EXPECT_EQ(clutter_actor_get_x(text), 20 + 5);
    EXPECT_EQ(clutter_actor_get_width(text), 200 - 50 - 5);
}

TEST_F(RadioButtonTest, AButtonThatOnlyItsGroupHoldsEndsWithIt)
{
    class CLogged : public CRadioButton
    {
    public:
        CLogged(const std::string& a_name, std::string& a_log) : CRadioButton(a_name, 0, 0, 90, 20, ""), m_log(a_log) {}
        ~CLogged() override { m_log += "~" + Name(); }
        using CRadioButton::Checked;
        void Checked(bool a_checked) override
        {
            m_log += Name() + (a_checked ? "+" : "-");
            CRadioButton::Checked(a_checked);
        }

    private:
        std::string& m_log;
    };
    std::string log;
    std::array<CLogged*, 3> buttons{};
    {
        const GroupPtr group(new CRadioGroup);
        for (std::size_t i = 0; i < buttons.size(); ++i)
        {
            buttons[i] = new CLogged(std::string(1, static_cast<char>('a' + i)), log);
            group->Add(ButtonPtr(buttons[i]), group);
        }
    }
    buttons[1]->Checked(true);
    EXPECT_EQ(log, "b+a-c-") << "the others, in order";
    log.clear();
    buttons[2]->SetGroup({});
    EXPECT_EQ(log, "~a") << "the first that isn't the one that leaves";
    buttons[1]->SetGroup({});
    EXPECT_EQ(log, "~a~c~b") << "with the last reference to the group";
}

} // namespace

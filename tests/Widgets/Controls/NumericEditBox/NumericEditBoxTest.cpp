#include "Widgets/Controls/NumericEditBox/NumericEditBox.h"

#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <functional>
#include <string>
#include <vector>

namespace
{

using Gfx::Common::CPoint;
using Gfx::Widgets::CEditBox;
using Gfx::Widgets::CLabel;
using Gfx::Widgets::CNumericEditBox;
using Gfx::Widgets::CWidget;
using GfxTest::Notify;
using GfxTest::WidgetPtr;
using Fields = std::vector<CNumericEditBox::SField>;

const Fields k_address{{".", 3}, {".", 3}, {".", 3}, {"", 3}};
const Fields k_time{{"h", 2}, {"m", 2}, {"s", -1}};

class NumericEditBoxTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        SetUpConfiguredStage("<Controls><NumericEditBox><Label><Size>20</Size></Label><Font><Colour>Ink</Colour>"
                             "<Alignment>Middle,Centre</Alignment></Font></NumericEditBox></Controls>");
    }

    static Core::SharedPtr<CNumericEditBox> Add(const Fields& a_fields)
    {
        return AddTopLevel(new CNumericEditBox("box", 100, 100, 400, 50, a_fields));
    }

    /// A part of a box by what its name has after "box".
    template <typename T = CEditBox>
    static T& Part(CNumericEditBox& a_box, const std::string& a_name)
    {
        return dynamic_cast<T&>(*Widgets().FindWidget("box" + a_name, &a_box));
    }

    /// The widths of the fields and labels of a box, which follow each other and fill its height.
    static std::string Widths(CNumericEditBox& a_box, const Fields& a_fields)
    {
        std::vector<std::string> names;
        for (const auto& field : a_fields)
        {
            names.push_back("_" + field.label);
            field.label.empty() ? void() : names.push_back("_" + field.label + "Label");
        }
        int x = 0;
        std::string widths;
        for (const std::string& name : a_fields.empty() ? std::vector<std::string>{""} : names)
        {
            const auto& part = Part<CWidget>(a_box, name);
            EXPECT_EQ(part.TopLeft(), CPoint(x, 0)) << name;
            EXPECT_EQ(part.Height(), a_box.Height()) << name;
            x += part.Width();
            widths += std::to_string(part.Width()) + ' ';
        }
        return widths;
    }

    /// The label behind the active field, and all texts: "h:12,,3".
    static std::string State(CNumericEditBox& a_box)
    {
        std::string active;
        std::string texts;
        for (const char* label : {"h", "m", "s"})
        {
            const auto& field = Part(a_box, std::string("_") + label);
            active += field.LockActive() ? label : "";
            texts += (texts.empty() ? ":" : ",") + field.Text();
        }
        return active + texts;
    }

    /// '<' is a backspace.
    static void Type(CNumericEditBox& a_box, const std::string& a_keys)
    {
        for (const char key : a_keys)
        {
            a_box.KeyboardEvent(key == '<' ? 0xFF08U : static_cast<unsigned char>(key));
        }
    }
};

TEST_F(NumericEditBoxTest, FieldsAndLabelsLieInARow)
{
    const struct
    {
        Fields fields;
        const char* widths;
        const char* resized;
    } cases[] = {
        {k_time, "113 20 113 20 113 20 ", "80 20 80 20 80 20 "},
        {{{"h", 2}, {"", 3}, {"s", 2}}, "113 20 113 113 20 ", "80 20 80 80 20 "},
        {{}, "400 ", "300 "},
    };
    for (const auto& row : cases)
    {
        const auto box = Add(row.fields);
        EXPECT_EQ(Widths(*box, row.fields), row.widths);
        box->Resize(300, 30);
        EXPECT_EQ(Widths(*box, row.fields), row.resized);
        box->Resize(-10, -10);
    }
    Add(Fields(200, {"x", -7}));
    Settle();
}

TEST_F(NumericEditBoxTest, FieldsAndLabelsAreWhatTheyAreDeclared)
{
    const auto box = Add(k_time);
    EXPECT_EQ(Part(*box, "_h").MaximumLength(), 2);
    EXPECT_EQ(Part(*box, "_s").MaximumLength(), 2048);
    const auto& label = Part<CLabel>(*box, "_hLabel");
    EXPECT_EQ(label.Text(), "h");
    EXPECT_FALSE(label.Background());
    EXPECT_EQ(label.Font().alignment, 0x22);
    auto font = box->Font();
    font.size = 30;
    box->Font(font);
    EXPECT_EQ(box->Font().alignment, 0x11);
    EXPECT_EQ(Part(*box, "_s").Font().size, 30);
    EXPECT_EQ(label.Font().size, 16) << "labels keep theirs";
    SetTheme("Swapped");
    EXPECT_EQ(Part(*box, "_s").Font().colour, Gfx::Colours::Lime);
}

TEST_F(NumericEditBoxTest, TextIsPutTogetherFromTheFieldsAndTakenApart)
{
    const struct
    {
        Fields fields;
        std::string text;
        std::string expected;
    } cases[] = {
        {k_address, "", "0.0.0.0"},
        {k_address, "10.1", "10.0.0.0"},
        {k_address, "1.2.3.4", "1.2.3.0"},
        {k_address, "12345.6.7.", "123.6.7.0"},
        {k_time, "1h2m3s", "1h2m3s"},
        {k_time, "1h3s", "1h0m3s"},
        {k_time, "hms", "0h0m0s"},
        {k_time, "7s8h", "7sh0m0s"},
        {k_time, "", "0h0m0s"},
        {{}, "any text", "any text"},
        {{}, "", ""},
        {{}, "\xFF", "\xEF\xBF\xBD"},
        {{{"\xC3", 2}, {"", 1}},
         "\xC3\xA9\xC3",
         "0\xC3"
         "0"},
    };
    for (const auto& row : cases)
    {
        const auto box = Add(row.fields);
        if (!row.text.empty())
        {
            box->SetProperty("Text", row.text);
        }
        EXPECT_EQ(box->GetProperty("Text", "none"), row.expected) << row.text;
        EXPECT_EQ(box->GetCustomInfo().at("Text"), box->Text());
    }
}

TEST_F(NumericEditBoxTest, TypingRunsFromFieldToField)
{
    const struct
    {
        const char* before;
        const char* keys;
        const char* state;
    } cases[] = {
        {"1h3s", "", ":1,0,3"},         {"", "1", "h:1,,"},           {"", "12", "m:12,,"},
        {"", "1234567", "s:12,34,567"}, {"1h2m3s", "4", "h:4,2,3"},   {"1h2m3s", "45678", "s:45,67,8"},
        {"1h2m3s", ".", "m:1,2,3"},     {"", ".", "m:0,,"},           {"", "....", "s:0,0,0"},
        {"", "....7", "s:0,0,7"},       {"1h2m3s", "<", "h:,2,3"},    {"1h2m3s", "<<", "h:0,2,3"},
        {"1h2m3s", "<<<4", "h:4,2,3"},  {"1h2m3s", ".<<", "h:1,0,3"}, {"1h2m3s", ".<<9", "h:9,0,3"},
        {"", "x\xE9", "m:x\xC3\xA9,,"},
    };
    for (const auto& row : cases)
    {
        const auto box = Add(k_time);
        if (*row.before != 0)
        {
            box->Text(row.before);
        }
        Type(*box, row.keys);
        EXPECT_EQ(State(*box), row.state) << row.before << ' ' << row.keys;
    }
    const auto address = Add(k_address);
    EXPECT_EQ(address->Text(), "0.0.0.0");
    Type(*address, "192.");
    EXPECT_EQ(address->Text(), "192.0.0.0") << "full, then on by the dot: two fields further";
    for (const Fields& fields : {Fields{}, Fields{{"", -1}}})
    {
        const auto single = Add(fields);
        Type(*single, "a.b<<.");
        EXPECT_EQ(single->Text(), "a.");
    }
}

TEST_F(NumericEditBoxTest, TouchesHighlightAndLeaveNoFieldEmpty)
{
    const auto box = Add(k_time);
    Click(110, 110);
    EXPECT_EQ(State(*box), "h:,,");
    Click(250, 110);
    EXPECT_EQ(State(*box), "m:0,,");
    Type(*box, "7");
    box->Resize(420, 60);
    EXPECT_EQ(State(*box), "m:0,7,") << "nothing is lost";
    Click(250, 110);
    Type(*box, "8");
    EXPECT_EQ(State(*box), "m:0,8,") << "touched again, it is replaced again";
    box->HighlightFirst();
    Type(*box, "9");
    EXPECT_EQ(State(*box), "m:0,9,") << "first only where there is no active one";
    GfxTest::CBlock foreign("foreign", 0, 0, 1, 1, Gfx::Colours::Red);
    box->Highlight(&foreign);
    box->Rotate(CNumericEditBox::erdForward);
    EXPECT_EQ(State(*box), ":0,9,");
    box->HighlightFirst();
    EXPECT_EQ(State(*box), "h:0,9,");
    box->Rotate(CNumericEditBox::erdBackward);
    EXPECT_EQ(State(*box), "h:0,9,");
    const auto single = Add({});
    Click(110, 110);
    EXPECT_EQ(single->Text(), "");
    Click(110, 110);
    EXPECT_EQ(single->Text(), "0");
}

TEST_F(NumericEditBoxTest, NewFieldsAreEmptyAndTheOldOnesAreGone)
{
    const auto box = Add({});
    int touches = 0;
    GfxTest::Mouse::Callable mouse([&](CWidget*, Gfx::Events::EMouseEvent a_event, int, const CPoint&, bool)
                                   { touches += a_event == Gfx::Events::FirstDown ? 1 : 0; });
    box->SetMouseEditBoxListEventHandler(&mouse);
    Press(110, 110);
    EXPECT_EQ(touches, 1);
    const WidgetPtr old = Widgets().FindWidget("box", box.Get());
    Type(*box, "a");
    box->Fields(k_time);
    box->HighlightFirst();
    EXPECT_EQ(clutter_actor_get_n_children(box->GetActor()), 6) << "what still lives isn't shown";
    Release(110, 110);
    old->MouseEvent(Gfx::Events::FirstDown, 1, {5, 5}, false);
    old->MouseEvent(Gfx::Events::FirstClick, 0, {5, 5}, false);
    old->KeyboardEvent('x');
    EXPECT_EQ(touches, 1);
    EXPECT_EQ(State(*box), "h:,,");
    Type(*box, "1");
    box->Fields(k_time);
    box->Text("4h5m6s");
    box->Highlight(&Part(*box, "_m"));
    Type(*box, "7");
    EXPECT_EQ(State(*box), "m:4,7,6") << "whatever was typed in the fields before";
    box->SetMouseEditBoxListEventHandler(&mouse);
    Click(390, 110);
    EXPECT_EQ(touches, 2);
    box->Fields({});
    Type(*box, "a");
    EXPECT_EQ(box->Text(), "a");
}

TEST_F(NumericEditBoxTest, AHandlerThatAlwaysChangesTheFieldsComesToAnEnd)
{
    const auto box = Add(k_time);
    int calls = 0;
    Notify::Callable handler([&](CWidget*)
                             { calls < 10'000 ? box->Text(++calls % 2 != 0 ? "1h1m1s" : "2h2m2s") : void(); });
    box->SetTextChangedEventHandler(&handler);
    for (const char* text : {"3h3m3s", "4h4m4s"})
    {
        calls = 0;
        box->Text(text);
        EXPECT_GT(calls, 3) << text;
        EXPECT_LT(calls, 1000) << text;
    }
    box->SetTextChangedEventHandler(nullptr);
}

TEST_F(NumericEditBoxTest, AHandlerMayDestroyTheBoxOrReplaceItsFieldsAtAnyChange)
{
    // By plain pointers, so that nobody but the manager holds the box.
    const auto find = [] { return dynamic_cast<CNumericEditBox*>(Widgets().FindWidget("box", nullptr).Get()); };
    const auto type = [&](const std::string& a_keys)
    {
        for (std::size_t i = 0; i < a_keys.size() && find() != nullptr; ++i)
        {
            Type(*find(), a_keys.substr(i, 1));
        }
    };
    const std::function<void()> acts[] = {
        [&] { type("1234567"); },
        [&] { type("1<<<"); },
        [&] { find()->Text("1h2m3s"); },
        [&] { find()->Rotate(CNumericEditBox::erdForward); },
        [&] { find()->UnHighlightActive(); },
        [&]
        {
            Click(110, 110);
            Click(250, 110);
        },
    };
    for (const auto& act : acts)
    {
        for (int i = 0; i < 8; ++i)
        {
            const bool replaces = i % 2 != 0;
            const int last = i / 2 + 1;
            Widgets().AddWidget(WidgetPtr(new CNumericEditBox("box", 100, 100, 400, 50, k_time)));
            find()->HighlightFirst();
            int calls = 0;
            Notify::Callable handler(
                [&](CWidget*)
                {
                    if (++calls == last)
                    {
                        replaces ? find()->Fields({{"x", 1}, {"y", 1}}) : Widgets().DestroyWidget(find());
                    }
                });
            find()->SetTextChangedEventHandler(&handler);
            act();
            EXPECT_GE(calls, 1) << &act - acts;
            EXPECT_EQ(find() != nullptr, replaces || calls < last) << &act - acts << ' ' << i;
            Release(0, 0);
            Widgets().DestroyWidget(find());
            Settle();
        }
    }
}

} // namespace

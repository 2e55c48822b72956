#include "Widgets/Controls/NumericEditBox/NumericEditBox.h"

#include "Core/Functor.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <array>
#include <cstdlib>
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
using GfxTest::WidgetPtr;

using Notify = Core::Functor<void, CWidget*>;
using Mouse = Core::Functor<void, CWidget*, Gfx::Events::EMouseEvent, int, const CPoint&, bool>;
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

    /// The fields from left to right, with where they lie.
    static std::vector<CEditBox*> FieldsOf(CNumericEditBox& a_box, const std::string& a_labels)
    {
        std::vector<CEditBox*> fields;
        for (const char label : a_labels)
        {
            const WidgetPtr field = Widgets().FindWidget(std::string("box_") + label, &a_box);
            fields.push_back(dynamic_cast<CEditBox*>(field.Get()));
        }
        return fields;
    }

    /// The label behind the active field, and all texts: "h:12,,3".
    static std::string State(CNumericEditBox& a_box)
    {
        std::string active;
        std::string texts;
        for (CEditBox* field : FieldsOf(a_box, "hms"))
        {
            active += field->LockActive() ? field->Name().substr(4) : "";
            texts += (texts.empty() ? ":" : ",") + field->Text();
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
    const auto box = Add(k_time);
    const auto expectRow = [&](int a_fieldWidth, int a_height)
    {
        int x = 0;
        for (const char* label : {"h", "m", "s"})
        {
            const WidgetPtr field = Widgets().FindWidget(std::string("box_") + label, box.Get());
            const WidgetPtr sign = Widgets().FindWidget(std::string("box_") + label + "Label", box.Get());
            EXPECT_EQ(field->TopLeft(), CPoint(x, 0)) << label;
            EXPECT_EQ(field->Width(), a_fieldWidth);
            EXPECT_EQ(sign->TopLeft(), CPoint(x + a_fieldWidth, 0)) << label;
            EXPECT_EQ(sign->Width(), 20);
            EXPECT_EQ(field->Height(), a_height);
            EXPECT_EQ(sign->Height(), a_height);
            x += a_fieldWidth + 20;
        }
    };
    expectRow(113, 50);
    const WidgetPtr label = Widgets().FindWidget("box_hLabel", box.Get());
    EXPECT_EQ(dynamic_cast<CLabel&>(*label).Text(), "h");
    EXPECT_FALSE(dynamic_cast<CLabel&>(*label).Background());
    EXPECT_EQ(dynamic_cast<CLabel&>(*label).Font().alignment, 0x22);

    box->Text("1h2m3s");
    box->Highlight(FieldsOf(*box, "m")[0]);
    box->Resize(300, 30);
    expectRow(80, 30);
    EXPECT_EQ(State(*box), "m:1,2,3") << "nothing is lost";
    box->Resize(-10, -10);
    Settle();

    const auto single = Add({});
    single->Resize(200, 40);
    const WidgetPtr field = Widgets().FindWidget("box", single.Get());
    EXPECT_EQ(field->Width(), 200);
    EXPECT_EQ(field->Height(), 40);
    // A last field without a label is as wide as the others.
    const auto address = Add(k_address);
    const WidgetPtr last = Widgets().FindWidget("box_", address.Get());
    EXPECT_EQ(last->TopLeft(), CPoint(300, 0));
    EXPECT_EQ(last->Width(), 80);
    EXPECT_EQ(dynamic_cast<CEditBox&>(*last).MaximumLength(), 3);
    EXPECT_EQ(FieldsOf(*box, "s")[0]->MaximumLength(), 2048);
    Add(Fields(200, {"x", -7}));
    Settle();
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
        {"", "1", "h:1,,"},
        {"", "12", "m:12,,"},
        {"", "1234567", "s:12,34,567"},
        {"1h2m3s", "4", "h:4,2,3"},
        {"1h2m3s", "45678", "s:45,67,8"},
        {"1h2m3s", ".", "m:1,2,3"},
        {"", ".", "m:0,,"},
        {"", "....", "s:0,0,0"},
        {"", "....7", "s:0,0,7"},
        {"1h2m3s", "<", "h:,2,3"},
        {"1h2m3s", "<<", "h:0,2,3"},
        {"1h2m3s", "<<<4", "h:4,2,3"},
        {"1h2m3s", ".<<", "h:1,0,3"},
        {"1h2m3s", ".<<9", "h:9,0,3"},
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
    Click(250, 110);
    Type(*box, "8");
    EXPECT_EQ(State(*box), "m:0,8,") << "touched again, it is replaced again";
    box->HighlightFirst();
    Type(*box, "9");
    EXPECT_EQ(State(*box), "m:0,9,") << "first only where there is no active one";
    GfxTest::CBlock foreign("foreign", 0, 0, 1, 1, Gfx::Colours::Red);
    box->Highlight(&foreign);
    EXPECT_EQ(State(*box), ":0,9,");
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
    Mouse::Callable mouse([&](CWidget*, Gfx::Events::EMouseEvent a_event, int, const CPoint&, bool)
                          { touches += a_event == Gfx::Events::FirstDown ? 1 : 0; });
    box->SetMouseEditBoxListEventHandler(&mouse);
    Press(110, 110);
    EXPECT_EQ(touches, 1);
    const WidgetPtr old = Widgets().FindWidget("box", box.Get());
    Type(*box, "a");
    box->Fields(k_time);
    EXPECT_EQ(clutter_actor_get_n_children(box->GetActor()), 6) << "what still lives isn't shown";
    Release(110, 110);
    old->MouseEvent(Gfx::Events::FirstDown, 1, {5, 5}, false);
    old->MouseEvent(Gfx::Events::FirstClick, 0, {5, 5}, false);
    old->KeyboardEvent('x');
    EXPECT_EQ(touches, 1);
    EXPECT_EQ(State(*box), ":,,");
    Type(*box, "1");
    box->Fields(k_time);
    box->Text("4h5m6s");
    box->Highlight(FieldsOf(*box, "m")[0]);
    Type(*box, "7");
    EXPECT_EQ(State(*box), "m:4,7,6") << "whatever was typed in the fields before";
    box->SetMouseEditBoxListEventHandler(&mouse);
    Press(390, 110);
    EXPECT_EQ(touches, 2);
    Release(390, 110);
    box->Fields({});
    Type(*box, "a");
    EXPECT_EQ(box->Text(), "a");
}

TEST_F(NumericEditBoxTest, FontsReachTheFieldsAndFollowTheTheme)
{
    const auto box = Add(k_time);
    auto font = box->Font();
    font.size = 30;
    box->Font(font);
    EXPECT_EQ(box->Font().alignment, 0x11);
    EXPECT_EQ(FieldsOf(*box, "s")[0]->Font().size, 30);
    SetTheme("Swapped");
    EXPECT_EQ(FieldsOf(*box, "s")[0]->Font().colour, Gfx::Colours::Lime);
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

TEST_F(NumericEditBoxTest, HandlersMayDestroyTheBoxOrReplaceItsFieldsAtAnyChange)
{
    WidgetPtr keep;
    CNumericEditBox* box = nullptr;
    const auto type = [&](const std::string& a_keys)
    {
        for (std::size_t i = 0; i < a_keys.size() && keep; ++i)
        {
            Type(*box, a_keys.substr(i, 1));
        }
    };
    const std::array<std::function<void()>, 6> acts{
        [&] { type("1234567"); },
        [&] { type("1<<<"); },
        [&] { box->Text("1h2m3s"); },
        [&] { box->Rotate(CNumericEditBox::erdForward); },
        [&] { box->UnHighlightActive(); },
        [&]
        {
            Click(110, 110);
            Click(250, 110);
        },
    };
    int calls = 0;
    int when = 0;
    bool replaces = false;
    Notify::Callable handler(
        [&](CWidget*)
        {
            if (++calls != when)
            {
                return;
            }
            if (replaces)
            {
                box->Fields({{"x", 1}, {"y", 1}});
                return;
            }
            Widgets().DestroyWidget(box);
            keep.Reset();
        });
    for (std::size_t act = 0; act < acts.size(); ++act)
    {
        for (const int step : {1, 2, -1, -2, 3, 4})
        {
            box = new CNumericEditBox("box", 100, 100, 400, 50, k_time);
            keep = WidgetPtr(box);
            Widgets().AddWidget(keep);
            box->HighlightFirst();
            box->SetTextChangedEventHandler(&handler);
            calls = 0;
            when = std::abs(step);
            replaces = step < 0;
            acts[act]();
            EXPECT_GE(calls, 1) << act;
            EXPECT_EQ(static_cast<bool>(keep), replaces || calls < when) << act << ' ' << step;
            if (keep)
            {
                box->SetTextChangedEventHandler(nullptr);
                Widgets().DestroyWidget(box);
                keep.Reset();
            }
            Release(0, 0);
            Settle();
        }
    }
}

} // namespace

#include "Widgets/Controls/Keyboard/OnScreenKeyboard.h"

#include "Managers/Textures/TextureManager.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <clutter/clutter.h>
#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <limits>
#include <memory>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Common::CAABB;
using Gfx::Common::CPoint;
using Gfx::Widgets::CButton;
using Gfx::Widgets::CNumericEditBox;
using Gfx::Widgets::COnScreenKeyboard;
using Gfx::Widgets::CWidget;
using GfxTest::WidgetPtr;

using Closing = Core::Functor<bool, CWidget*, bool, const std::string&>;
using Closed = Core::Functor<void, CWidget*, bool, const std::string&>;

const std::string k_file = "Configuration/OSK.xml";

class OnScreenKeyboardTest : public GfxTest::CStageTest
{
protected:
    static void SetUpTestSuite()
    {
        for (const char* file : {"Configuration/GfxConfig.xml", "Configuration/ThemeConfig.xml", "TextureMaps"})
        {
            std::filesystem::create_directories(Data().Path() + "Configuration");
            std::filesystem::create_symlink(std::string(GFX_TEST_DATA) + file, Data().Path() + file);
        }
        SetUpStage(Data().Path());
        StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
    }

    void SetUp() override
    {
        CStageTest::SetUp();
        SetTheme("Plain");
        COnScreenKeyboard::Keyboards.clear();
        std::filesystem::copy_file(GFX_TEST_DATA + k_file, Data().Path() + k_file,
                                   std::filesystem::copy_options::overwrite_existing);
    }

    static const GfxTest::CTemporaryDirectory& Data()
    {
        static const GfxTest::CTemporaryDirectory s_data;
        return s_data;
    }

    static Core::SharedPtr<COnScreenKeyboard> Add(const std::string& a_layout = "Letters",
                                                  const std::string& a_mode = "")
    {
        return AddTopLevel(new COnScreenKeyboard("keyboard", 0, 0, a_layout, a_mode, "title"));
    }

    /// A key, or the edit box.
    static WidgetPtr Find(const std::string& a_id)
    {
        return Widgets().FindWidget("keyboard:WindowPanel:" + a_id, nullptr);
    }

    static CNumericEditBox& EditBox() { return dynamic_cast<CNumericEditBox&>(*Find("KeyboardEditBox")); }

    static std::string Caption(const std::string& a_id) { return dynamic_cast<CButton&>(*Find(a_id)).Text(); }

    static void Touch(const std::string& a_id)
    {
        const WidgetPtr key = Find(a_id);
        ASSERT_TRUE(key) << a_id;
        const CAABB box = key->AABB();
        Click(box.Left() + box.Width() / 2, box.Top() + box.Height() / 2);
    }

    static void TouchAll(const std::vector<std::string>& a_ids)
    {
        for (const std::string& id : a_ids)
        {
            Touch(id);
        }
    }

    static void WriteLayout(const std::string& a_pages, const std::string& a_defaults = "")
    {
        Data().Write(k_file,
                     "<K><L id='x'><Defaults>" + a_defaults + "</Defaults><Pages>" + a_pages + "</Pages></L></K>");
    }
};

TEST_F(OnScreenKeyboardTest, LayoutsAreReadAsTheFileSays)
{
    Add();
    const COnScreenKeyboard::SKeyboardLayout& layout = COnScreenKeyboard::Keyboards.at("Letters");
    EXPECT_EQ(layout.width, 400);
    EXPECT_EQ(layout.keyWidth, 70);
    EXPECT_EQ(layout.flags, 0U);
    EXPECT_EQ(COnScreenKeyboard::Keyboards.at("Numbers").flags, 1U);
    std::string modes;
    for (const auto& [id, fields] : layout.modes)
    {
        modes += id;
        for (const CNumericEditBox::SField& field : fields)
        {
            modes += ' ' + field.label + std::to_string(field.length);
        }
        modes += ';';
    }
    EXPECT_EQ(modes, "Date .2 4;Default;Time :2 h-1;");
    EXPECT_TRUE(layout.pages.at(1).shiftPressedByDefault);
    EXPECT_FALSE(layout.pages.at(2).shiftPressedByDefault) << "\"yes\" isn't \"Yes\"";
    const COnScreenKeyboard::SKey& plain = layout.pages[0].rows.at(1).keys.at(0);
    EXPECT_EQ(plain.code + plain.shiftedCode, "11");
    EXPECT_EQ(layout.pages[0].rows[1].keys.at(1).shiftedCode, "2") << "the code, and not the id";

    Data().Write(k_file, "<Keyboards/>");
    EXPECT_EQ(Add()->LayoutId(), "Letters") << "the file is read once";
}

TEST_F(OnScreenKeyboardTest, KeysLieInRowsBetweenTheMargins)
{
    const auto keyboard = Add();
    const struct
    {
        const char* key;
        CAABB box;
    } cases[] = {
        {"KeyboardEditBox", {10, 10, 380, 25}},
        {"a", {67, 47, 70, 70}},
        {"e-acute", {147, 47, 105, 70}},
        {"-", {262, 47, 70, 70}},
        {"1", {125, 127, 70, 70}},
        {"tall", {205, 127, 70, 140}},
        {"ShiftKey", {10, 207, 70, 70}},
        {"NextPage", {135, 207, 70, 70}},
        {"Spacebar", {215, 207, 70, 70}},
    };
    for (const auto& row : cases)
    {
        ASSERT_TRUE(Find(row.key)) << row.key;
        EXPECT_EQ(Find(row.key)->AABB(), row.box) << row.key;
    }
    EXPECT_FALSE(Find("EmptyFill"));
    EXPECT_EQ(Find("NextPage")->GetCustomInfo().at("Image"), "OnScreenKeyboard_NextPage");
    EXPECT_EQ(Caption("Spacebar"), "");

    // A border comes only behind what has a width, where a row is measured.
    auto& narrow = COnScreenKeyboard::Keyboards["Narrow"];
    narrow.keyWidth = 7;
    narrow.width = 400;
    narrow.pages = {{"Narrow", false, {{{{"a", "", "", 0.1F}, {"b", "", ""}, {"c", "", "", 0.1F}}, true}}}};
    keyboard->SelectLayout("Narrow");
    EXPECT_TRUE(Find("e-acute")) << "the keys stay until a page is selected";
    keyboard->SelectPage("Narrow");
    EXPECT_FALSE(Find("e-acute"));
    EXPECT_EQ(Find("a")->AABB().Left(), 10 + (380 - 17) / 2);
    EXPECT_EQ(Find("b")->AABB().Left(), 10 + (380 - 17) / 2 + 10);
}

TEST_F(OnScreenKeyboardTest, AFaultOfTheFileEndsTheProcess)
{
    const std::string start = "<K><L id='x'><Defaults/><Pages><P id='p'><R>";
    const std::string end = "</R></P></Pages></L></K>";
    const std::string tooHigh = "requiredHeight < Gfx::Managers::CGfxManager::ref().DisplayHeight()";
    const struct
    {
        std::string file;
        std::string assertion;
    } cases[] = {
        {"<K><L/></K>", "!keyboardId.empty()"},
        {"<K><L id='x'><Pages/></L></K>", "defaultsNode != __null"},
        {"<K><L id='x'><Defaults/><Modes><M/></Modes></L></K>", "!modeId.empty()"},
        {"<K><L id='x'><Defaults/></L></K>", "pagesNode != __null"},
        {"<K><L id='x'><Defaults/><Pages><P/></Pages></L></K>", "!pageId.empty()"},
        {start + "<Key code='a' width='11'/>" + end, "!elementId.empty()"},
        {start + "<Key id='a' width='0.09' height='11'/>" + end, "widthScale >= 0.1f"},
        {start + "<Key id='a' width='10.01' height='11'/>" + end, "widthScale <= 10.0f"},
        {start + "<Key id='a' height='-1'/>" + end, "heightScale >= 0.1f"},
        {start + "<Key id='a' height='1e9'/>" + end, "heightScale <= 10.0f"},
        {start + "</R><R/><R/><R/><R/><R/><R>" + end, tooHigh},
        {"<K><L id='x'><Defaults><D id='keyHeight' value='480'/></Defaults><Pages><P id='p'><R/></P></Pages></L></K>",
         tooHigh},
        {"<K><L id='other'><Defaults/><Pages/></L></K>", "layoutIter != COnScreenKeyboard::Keyboards.end()"},
        {"<K><L", "Unable to load OSK.xml"},
        {"<K><L", "layoutIter != COnScreenKeyboard::Keyboards.end()"},
    };
    for (const auto& row : cases)
    {
        Data().Write(k_file, row.file);
        EXPECT_DEATH(COnScreenKeyboard("keyboard", 0, 0, "x", "", ""), testing::HasSubstr(row.assertion)) << row.file;
    }
}

TEST_F(OnScreenKeyboardTest, WhatIsOddInTheFileIsHarmless)
{
    const std::string most = std::to_string(std::numeric_limits<int>::max());
    const auto size = [](const std::string& a_id, const std::string& a_value)
    { return "<D id='" + a_id + "' value='" + a_value + "'/>"; };
    const std::string keys = "<Key id='ShiftKey'/><Key id='a' code=''/><Key id='b' width='0.1' height='10'/>"
                             "<Key id='NextPage' width='10'/><Key id='long' code='&#x1F600;more'/><Key id='Cancel'/>";
    const std::string page = "<P id='p'><R>" + keys + "</R></P><P id='q'><R>" + keys + "</R><R/></P>";
    const struct
    {
        std::string pages;
        std::string defaults;
    } cases[] = {
        {"", ""},
        {"<P id='p'/>", ""},
        {"<P id='p'><R/><R/></P><P id='p'/>", ""},
        {page, ""},
        {page, size("width", most) + size("height", most) + size("keyWidth", most)},
        {page, size("width", "-" + most) + size("height", "-9") + size("keyWidth", "-" + most)},
        {page, size("keyHeight", "-" + most) + size("keyBorder", most)},
        {page, size("keyHeight", "-" + most) + size("keyBorder", "-" + most)},
    };
    for (const auto& row : cases)
    {
        WriteLayout(row.pages, row.defaults);
        COnScreenKeyboard::Keyboards.clear();
        const auto keyboard = Add("x", "nonsense");
        EXPECT_EQ(keyboard->Mode(), "Default");
        keyboard->Show();
        for (int i = 0; i < 2; ++i)
        {
            for (const char* id : {"a", "b", "long", "ShiftKey", "NextPage"})
            {
                keyboard->KeyPressed(Find(id).Get(), 1, {}, false);
            }
            Settle();
        }
        EXPECT_EQ(keyboard->Text(), Find("a") ? "b\U0001F600b\U0001F600" : "");
        keyboard->Text("\xFF");
        Widgets().DestroyWidget(keyboard.Get());
    }
}

TEST_F(OnScreenKeyboardTest, ShiftIsALockThatShowPressesAndAPageSets)
{
    const auto keyboard = Add();
    EXPECT_FALSE(keyboard->Visible());
    EXPECT_TRUE(keyboard->Modal());
    EXPECT_EQ(Caption("a"), "a");
    keyboard->Show();
    EXPECT_EQ(Caption("a"), "A");
    EXPECT_EQ(keyboard->GetCustomInfo().at("ShiftPressed"), "1");
    TouchAll({"a", "e-acute", "tall", "Spacebar", "ShiftKey", "a", "e-acute"});
    EXPECT_EQ(keyboard->Text(), "A\u00C92 a\u00E9");
    TouchAll({"NextPage", "b", "ShiftKey", "b", "NextPage"});
    EXPECT_EQ(Caption("c"), "c");
    TouchAll({"c", "NextPage", "a"});
    EXPECT_EQ(keyboard->Text(), "A\u00C92 a\u00E9Bbca") << "from the last page to the first";
}

TEST_F(OnScreenKeyboardTest, PagesReplaceEachOtherButNotThemselves)
{
    const auto keyboard = Add();
    const auto keys = []
    {
        Widgets().GarbageCollect();
        return clutter_actor_get_n_children(Find("KeyboardEditBox")->Parent()->GetActor()) - 1;
    };
    EXPECT_EQ(keys(), 16) << "what comes onto the stage gets a new style, and that places all keys once more";
    keyboard->SelectPage("First");
    EXPECT_EQ(keys(), 16);
    keyboard->SelectPage("Second");
    EXPECT_EQ(keys(), 6);
    keyboard->SelectPage("unknown");
    EXPECT_EQ(keys(), 8);
    keyboard->SelectPage("unknown");
    EXPECT_EQ(keys(), 16) << "it is on show already";
    Touch("ShiftKey");
    SetTheme("Swapped");
    EXPECT_EQ(keys(), 24);
    keyboard->NextPage();
    EXPECT_EQ(keys(), 6);
}

TEST_F(OnScreenKeyboardTest, TheFirstCharacterReplacesAnUntouchedText)
{
    const struct
    {
        const char* layout;
        const char* mode;
        const char* before;
        std::vector<std::string> keys;
        const char* after;
    } cases[] = {
        {"Letters", "", "12a", {"tall"}, "2"},
        {"Letters", "", "12a", {"tall", "tall"}, "22"},
        {"Letters", "", "12a", {"Spacebar"}, " "},
        {"Letters", "", "12a", {"ShiftKey", "a"}, "a"},
        {"Letters", "", "12a", {"KeyboardEditBox", "tall"}, "12a2"},
        {"Letters", "Time", "1:2h", {"1", "1"}, "11:0h"},
        {"Letters", "Time", "1:2h", {"1", "1", "tall"}, "11:2h"},
        {"Numbers", "", "12", {"Backspace", "1"}, "11"},
        {"Numbers", "", "12", {"-", "1"}, "-121"},
        {"Numbers", "", "12", {"-", "-"}, "12"},
        {"Numbers", "", "", {"-"}, "-"},
        {"Numbers", "", "", {"-", "-"}, "--"},
        {"Letters", "", "", {"-", "-"}, "--"},
        {"Letters", "", "a", {"-"}, "-"},
    };
    for (const auto& row : cases)
    {
        const auto keyboard = Add(row.layout, row.mode);
        // Which of the characters a layout has is another matter.
        EditBox().Text(row.before);
        keyboard->Show();
        TouchAll(row.keys);
        EXPECT_EQ(keyboard->Text(), row.after) << row.layout << ' ' << row.before;
        Widgets().DestroyWidget(keyboard.Get());
    }
}

TEST_F(OnScreenKeyboardTest, ATextKeepsWhatTheLayoutCanType)
{
    const auto keyboard = Add("Letters", "Date");
    const struct
    {
        const char* text;
        const char* valid;
    } cases[] = {
        {"ab\x01z", "ab"},  {"\u00C9\u00E9x\u20AC", "\u00C9\u00E9"}, {"E 1.2:", "E 1.2"}, {"xyz", ""}, {"", ""},
        {"x\xFF", "x\xFF"},
    };
    for (const auto& row : cases)
    {
        EXPECT_EQ(keyboard->ValidateTextAgainstLayout(row.text), row.valid) << row.text;
    }
    keyboard->SetProperty("Mode", "nonsense");
    EXPECT_EQ(keyboard->Mode(), "Default");
    EXPECT_EQ(keyboard->ValidateTextAgainstLayout("1.2"), "12") << "the dot was a label";
    testing::internal::CaptureStdout();
    keyboard->Text("1.2");
    static_cast<void>(keyboard->Text());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "COnScreenKeyboard::Text: 12\n");
}

TEST_F(OnScreenKeyboardTest, ALengthLimitsKeysAlone)
{
    const auto keyboard = Add();
    for (const auto& [length, expected] : {std::pair(0, 1), {5000, 2048}, {2, 2}})
    {
        keyboard->MaximumLength(length);
        EXPECT_EQ(keyboard->MaximumLength(), expected);
    }
    keyboard->Show();
    TouchAll({"e-acute", "e-acute", "a", "Spacebar"});
    EXPECT_EQ(keyboard->Text(), "\u00C9\u00C9");
    keyboard->Text("aaa");
    keyboard->Show();
    Touch("a");
    EXPECT_EQ(keyboard->Text(), "aaa") << "even where it would be replaced";
}

TEST_F(OnScreenKeyboardTest, ClosingIsAskedForThenTold)
{
    const auto keyboard = Add("Numbers");
    std::string told;
    bool closes = false;
    const auto tell = [&](const char* a_what, CWidget* a_widget, bool a_done, const std::string& a_text)
    {
        EXPECT_EQ(a_widget, keyboard.Get());
        EXPECT_TRUE(keyboard->Visible());
        told += a_what + std::string(a_done ? " done " : " cancelled ") + a_text + ';';
    };
    Closing::Callable closing(
        [&](CWidget* a_widget, bool a_done, const std::string& a_text)
        {
            tell("closing", a_widget, a_done, a_text);
            return closes;
        });
    Closed::Callable closed([&](CWidget* a_widget, bool a_done, const std::string& a_text)
                            { tell("closed", a_widget, a_done, a_text); });
    keyboard->SetKeyboardClosingEventHandler(&closing);
    keyboard->SetKeyboardClosedEventHandler(&closed);
    keyboard->Show();
    TouchAll({"1", "Done"});
    EXPECT_EQ(std::exchange(told, ""), "closing done 1;");
    EXPECT_TRUE(keyboard->Visible());
    closes = true;
    Touch("Cancel");
    EXPECT_EQ(std::exchange(told, ""), "closing cancelled 1;closed cancelled 1;");
    EXPECT_FALSE(keyboard->Visible());
    EXPECT_EQ(keyboard->Text(), "1");

    keyboard->SetNoCancel(true);
    keyboard->Show();
    Touch("Cancel");
    EXPECT_TRUE(keyboard->Visible());
    keyboard->SetKeyboardClosingEventHandler(nullptr);
    keyboard->SetKeyboardClosedEventHandler(nullptr);
    Touch("Done");
    EXPECT_FALSE(keyboard->Visible());
    EXPECT_EQ(told, "");
}

TEST_F(OnScreenKeyboardTest, AnyHandlerMayCloseOrDestroyIt)
{
    COnScreenKeyboard* keyboard = nullptr;
    bool destroys = false;
    const auto end = [&]
    {
        if (COnScreenKeyboard* ended = std::exchange(keyboard, nullptr))
        {
            destroys ? Widgets().DestroyWidget(ended) : ended->Hide();
        }
    };
    Closing::Callable closing([&](CWidget*, bool, const std::string&) { return end(), true; });
    Closed::Callable closed([&](CWidget*, bool, const std::string&) { end(); });
    Core::Functor<void, CWidget*>::Callable textChanged([&](CWidget*) { end(); });
    Core::Functor<bool, CWidget*, bool>::Callable visibility([&](CWidget*, bool) { return end(), true; });
    Core::Functor<void, CWidget*, bool>::Callable selected([&](CWidget*, bool) { end(); });
    const std::function<void()> installs[] = {
        [&] { keyboard->SetKeyboardClosingEventHandler(&closing); },
        [&] { keyboard->SetKeyboardClosedEventHandler(&closed); },
        [&] { EditBox().SetTextChangedEventHandler(&textChanged); },
        [&] { keyboard->SetVisibilityChangedEventHandler(&visibility); },
        [&] { keyboard->SetSelectedChangedEventHandler(&selected); },
    };
    const std::function<void()> acts[] = {
        [] { Touch("Done"); },
        [] { Touch("1"); },
        [] { Touch("-"); },
        [] { Touch("Backspace"); },
        [&] { keyboard->Text("1"); },
        [&] { keyboard->Hide(); },
        [&] { keyboard->Mode("Default"); },
        [&]
        {
            Press(5, 200);
            keyboard != nullptr ? keyboard->SelectPage("unknown") : void();
            keyboard != nullptr ? keyboard->UpdateStyle() : void();
            keyboard != nullptr ? keyboard->SelectLayout("Letters") : void();
            keyboard != nullptr ? keyboard->Show() : void();
        },
    };
    int ended = 0;
    for (const bool doesDestroy : {true, false})
    {
        for (const auto& install : installs)
        {
            for (const auto& act : acts)
            {
                keyboard = new COnScreenKeyboard("keyboard", 0, 0, "Numbers", "", "");
                const WidgetPtr kept = doesDestroy ? WidgetPtr() : WidgetPtr(keyboard);
                Widgets().AddWidget(doesDestroy ? WidgetPtr(keyboard) : kept);
                keyboard->Text("11");
                keyboard->Show();
                destroys = doesDestroy;
                install();
                act();
                ended += keyboard == nullptr ? 1 : 0;
                Widgets().DestroyWidget(doesDestroy ? keyboard : kept.Get());
                keyboard = nullptr;
                Release(1, 1);
                Widgets().GarbageCollect();
                Settle();
            }
        }
    }
    EXPECT_GE(ended, 20);
}

} // namespace

#include "Platform/Clutter/Entry.h"

#include "support/StageTest.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace
{

constexpr ClutterColor k_ink{255, 255, 255, 255};
constexpr const char* k_replacement = "\xEF\xBF\xBD";

void CountChange(ClutterEntry*, gpointer a_count)
{
    ++*static_cast<int*>(a_count);
}

/// A widget's group with an entry of 100 by 30 at 50,60 in it.
class EntryTest : public GfxTest::CStageTest
{
protected:
    void SetUp() override
    {
        CStageTest::SetUp();
        Make("");
    }

    void Make(const char* a_text)
    {
        const auto block = AddTopLevel(new GfxTest::CBlock("block", 50, 60, 100, 30, Gfx::Colours::Black));
        actor = clutter_entry_new_full("Sans 16px", a_text, &k_ink);
        entry = CLUTTER_ENTRY(actor);
        clutter_actor_set_size(actor, 100, 30);
        clutter_container_add_on_top(block->GetActor(), actor);
        changes = 0;
        g_signal_connect(actor, "text-changed", G_CALLBACK(CountChange), &changes);
    }

    std::string Text() const { return clutter_entry_get_text(entry); }

    /// The columns and rows of the stage in which there is anything.
    static Gfx::Common::CAABB Ink()
    {
        const GfxTest::CPicture picture = FreshPicture();
        return picture.BoxOf([&](int a_x, int a_y) { return picture.At(a_x, a_y) != Gfx::Colours::Black; });
    }

    ClutterActor* actor = nullptr;
    ClutterEntry* entry = nullptr;
    int changes = 0;
};

TEST_F(EntryTest, EditingDoesWhatItDoesToAListOfCharacters)
{
    const std::vector<gunichar> keys{'a', 0xE9, 0x20AC, 0x1F600, 0x301, 0xFFC0, '\n'};
    const std::vector<gunichar> invalid{0, 0xD800, 0xDFFF, 0x110000, 0x80000000, 0xFFFFFFFF};
    std::mt19937 random(7);
    const auto pick = [&random](int a_count) { return static_cast<int>(random() % static_cast<unsigned>(a_count)); };
    std::vector<gunichar> model;
    int position = 0;
    int expectedChanges = 0;
    const auto encoded = [&model]
    {
        std::string text;
        for (const gunichar character : model)
        {
            char bytes[6];
            text.append(bytes, static_cast<std::size_t>(g_unichar_to_utf8(character, bytes)));
        }
        return text;
    };
    clutter_entry_set_max_length(entry, 12);
    for (int step = 0; step < 20'000; ++step)
    {
        const std::string before = encoded();
        switch (pick(8))
        {
        case 0:
        {
            const int target = pick(20) - 3;
            clutter_entry_set_cursor_position(entry, target);
            position = target < 0 ? static_cast<int>(model.size()) : std::min(target, static_cast<int>(model.size()));
            break;
        }
        case 1:
        case 2:
        {
            const int count = pick(4);
            clutter_entry_delete_chars(entry, static_cast<guint>(count));
            const int start = std::max(position - count, 0);
            model.erase(model.begin() + start, model.begin() + position);
            position = start;
            break;
        }
        case 3: clutter_entry_insert_unichar(entry, invalid[static_cast<std::size_t>(pick(6))]); break;
        default:
            const gunichar key = keys[static_cast<std::size_t>(pick(7))];
            clutter_entry_insert_unichar(entry, key);
            if (model.size() < 12)
            {
                model.insert(model.begin() + position++, key);
            }
        }
        expectedChanges += encoded() != before ? 1 : 0;
        ASSERT_EQ(Text(), encoded()) << step;
        ASSERT_EQ(clutter_entry_get_cursor_position(entry), position) << step;
        ASSERT_EQ(clutter_entry_get_length(entry), static_cast<int>(model.size())) << step;
        ASSERT_EQ(changes, expectedChanges) << step;
    }
    Settle();
}

TEST_F(EntryTest, TextIsMendedCutAtTheLimitAndToldOfWhenItChanges)
{
    const std::string replacement = k_replacement;
    const struct
    {
        std::string text;
        int limit;
        std::string expected;
    } cases[] = {
        {"plain", 0, "plain"},
        {"\xFF", 0, replacement},
        {"a\xC3", 0, "a" + replacement},
        {"\xED\xA0\x80", 0, replacement + replacement + replacement},
        {"a\xE2\x82\xAC"
         "b",
         2, "a\xE2\x82\xAC"},
        {"\xFF\xFF\xFF", 2, replacement + replacement},
    };
    for (const auto& row : cases)
    {
        clutter_entry_set_text(entry, "");
        clutter_entry_set_max_length(entry, row.limit);
        changes = 0;
        clutter_entry_set_text(entry, row.text.c_str());
        EXPECT_EQ(Text(), row.expected);
        EXPECT_EQ(changes, 1);
        clutter_entry_set_cursor_position(entry, 0);
        clutter_entry_set_text(entry, row.text.c_str());
        EXPECT_EQ(changes, 1) << "the same text is no change";
        EXPECT_EQ(clutter_entry_get_cursor_position(entry), clutter_entry_get_length(entry));
    }
    clutter_entry_set_max_length(entry, 1);
    EXPECT_EQ(Text(), replacement);
    EXPECT_EQ(changes, 2);
    // A megabyte of characters of three bytes: the limit falls within one.
    std::string longText;
    for (int i = 0; i < 350'000; ++i)
    {
        longText += "\xE2\x82\xAC";
    }
    clutter_entry_set_max_length(entry, 0);
    clutter_entry_set_text(entry, longText.c_str());
    EXPECT_EQ(Text(), longText.substr(0, 65535));
    clutter_entry_insert_unichar(entry, 'a');
    EXPECT_EQ(Text().size(), 65535U) << "full";
    clutter_entry_set_text(entry, std::string(1 << 20, '\xFF').c_str());
    EXPECT_LE(Text().size(), std::size_t{65536}) << "replacement characters are longer than what they replace";
    EXPECT_EQ(Ink().Right(), 150);
}

TEST_F(EntryTest, AMaskHidesTheTextWhateverCharacterItIs)
{
    Make("a\xE2\x82\xAC"
         "b");
    clutter_entry_set_visibility(entry, FALSE);
    EXPECT_EQ(GfxTest::ShownText(actor), "***");
    clutter_entry_set_invisible_char(entry, 0x25CF);
    EXPECT_EQ(GfxTest::ShownText(actor), "\xE2\x97\x8F\xE2\x97\x8F\xE2\x97\x8F");
    clutter_entry_set_invisible_char(entry, 0xD800);
    EXPECT_EQ(GfxTest::ShownText(actor), std::string(k_replacement) + k_replacement + k_replacement);
    EXPECT_EQ(clutter_entry_get_invisible_char(entry), 0xD800U);
    clutter_entry_set_visible_cursor(entry, FALSE);
    clutter_entry_set_invisible_char(entry, 0);
    EXPECT_EQ(Ink().Right(), 0) << "nothing at all";
    clutter_entry_set_visibility(entry, TRUE);
    EXPECT_EQ(GfxTest::ShownText(actor), Text());
}

TEST_F(EntryTest, ATextThatIsTooWideIsCutAndFollowsTheCursor)
{
    Make("WWWWWWWWWWWWWWWWWWWWi");
    const auto cursorColumn = [this]
    {
        // What the cursor adds to the picture.
        clutter_entry_set_visible_cursor(entry, FALSE);
        const GfxTest::CPicture without = FreshPicture();
        clutter_entry_set_visible_cursor(entry, TRUE);
        const GfxTest::CPicture with = FreshPicture();
        for (int x = 0; x < k_width; ++x)
        {
            if (!(with.At(x, 61) == without.At(x, 61)))
            {
                return x;
            }
        }
        return -1;
    };
    EXPECT_EQ(Ink().Left(), 50);
    EXPECT_EQ(cursorColumn(), 148) << "at the end the text ends at the right edge";
    clutter_entry_delete_chars(entry, 1);
    EXPECT_EQ(cursorColumn(), 148) << "and leaves no gap when it becomes shorter";
    clutter_entry_insert_unichar(entry, 'i');
    clutter_entry_set_cursor_position(entry, 20);
    const int beforeLast = cursorColumn();
    EXPECT_LT(beforeLast, 148) << "the text stays while the cursor is in sight";
    EXPECT_GT(beforeLast, 138);
    clutter_entry_set_cursor_position(entry, 2);
    EXPECT_EQ(cursorColumn(), 50);
    clutter_entry_set_cursor_position(entry, 0);
    EXPECT_EQ(cursorColumn(), 50);
    EXPECT_EQ(Ink().Right(), 150);
    clutter_entry_set_text(entry, "i");
    EXPECT_GT(cursorColumn(), 50);
    EXPECT_LT(cursorColumn(), 60);
    clutter_entry_set_visible_cursor(entry, FALSE);
    EXPECT_LT(Ink().Right(), 60);
    clutter_entry_set_text(entry, "");
    clutter_entry_set_visible_cursor(entry, TRUE);
    EXPECT_EQ(cursorColumn(), 50);
}

} // namespace

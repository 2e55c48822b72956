// The layouts in data/.

#include "Managers/Textures/TextureManager.h"
#include "Widgets/Controls/Keyboard/OnScreenKeyboard.h"
#include "support/StageTest.h"

#include <map>
#include <set>

namespace
{

using Gfx::Common::CAABB;
using Gfx::Widgets::CButton;
using Gfx::Widgets::COnScreenKeyboard;

/// What a finger hits.
constexpr int k_smallestKey = 44;

class ShippedLayoutsTest : public GfxTest::CStageTest
{
protected:
    static void SetUpTestSuite()
    {
        SetUpStage(GFX_TEST_DATA "../../data/");
        Core::Patterns::StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
        COnScreenKeyboard::ParseConfiguration();
    }
};

TEST_F(ShippedLayoutsTest, KeysAreLargeEnoughAndFillTheirRows)
{
    std::set<std::string> pageIds;
    for (const auto& [id, layout] : COnScreenKeyboard::Keyboards)
    {
        COnScreenKeyboard keyboard("keyboard", 0, 0, id, "", "");
        const GfxTest::WidgetPtr editBox = Widgets().FindWidget(&keyboard, {"WindowPanel", "KeyboardEditBox"});
        for (const COnScreenKeyboard::SKeyboardPage& page : layout.pages)
        {
            SCOPED_TRACE(page.id);
            EXPECT_TRUE(pageIds.insert(page.id).second) << "it would be taken for the other layout's";
            std::map<int, CAABB> rows;
            for (const COnScreenKeyboard::SKeyboardRow& row : page.rows)
            {
                for (const COnScreenKeyboard::SKey& key : row.keys)
                {
                    const auto button = Widgets().FindWidget(&keyboard, {"WindowPanel", key.id});
                    if (key.id == "EmptyFill")
                    {
                        continue;
                    }
                    ASSERT_TRUE(button) << key.id;
                    const CAABB box = button->AABB();
                    EXPECT_GE(box.Width(), k_smallestKey) << key.id;
                    EXPECT_GE(box.Height(), k_smallestKey) << key.id;
                    EXPECT_GT(box.Top(), editBox->AABB().Bottom());
                    EXPECT_LE(box.Bottom(), layout.height);
                    const auto [entry, isFirst] = rows.try_emplace(box.Top(), box);
                    if (!isFirst)
                    {
                        EXPECT_EQ(box.Left(), entry->second.Right() + layout.keyBorder) << key.id;
                        entry->second = CAABB(entry->second.Left(), 0, box.Right() - entry->second.Left(), 0);
                    }
                }
            }
            for (const auto& [top, row] : rows)
            {
                EXPECT_EQ(row.Left(), editBox->AABB().Left()) << top;
                // A key of two rows stands at the right.
                EXPECT_TRUE(row.Right() == editBox->AABB().Right() || id == "Digits") << top;
            }
            keyboard.NextPage();
        }
    }
}

TEST_F(ShippedLayoutsTest, EveryLanguageTypesAllOfLatin)
{
    std::string latin;
    for (char character = ' '; character <= '~'; ++character)
    {
        latin += character;
    }
    const std::map<std::string, std::string> letters{
        {"Full", "\u00FC\u00E9\u00F1"},         {"German", "\u00E4\u00F6\u00FC\u00DF\u1E9E"},
        {"French", "\u00E9\u00E8\u00C7\u0153"}, {"Greek", "\u03AC\u03A9\u03C2"},
        {"Russian", "\u0451\u042A\u0444"},      {"Arabic", "\u0636\u0623\u061F\u0665"},
    };
    for (const auto& [id, text] : letters)
    {
        const COnScreenKeyboard keyboard("keyboard", 0, 0, id, "", "");
        EXPECT_EQ(keyboard.ValidateTextAgainstLayout(latin + text), latin + text) << id;
    }
}

} // namespace

#include "Managers/Textures/PageAhead.h"

#include "support/Png.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace
{

using Gfx::Managers::detail::CPageAhead;

class PageAheadTest : public testing::Test
{
protected:
    PageAheadTest()
    {
        m_directory.Write("TextureMaps/First.png", GfxTest::EncodePng(1, 1, 6, 8, {100, 200, 10, 128}));
        m_directory.Write("TextureMaps/Second.png", GfxTest::EncodePng(1, 1, 6, 8, {1, 2, 3, 255}));
    }

    [[nodiscard]] std::string Page(const std::string& a_file) const
    {
        return m_directory.Path() + "TextureMaps/" + a_file;
    }

    void Begin(const std::string& a_table)
    {
        m_directory.Write("TextureMaps/TextureConfig.xml", a_table);
        m_ahead.Begin(m_directory.Path());
    }

    GfxTest::CTemporaryDirectory m_directory;
    CPageAhead m_ahead;
};

TEST_F(PageAheadTest, TheFirstPageIsTakenOncePremultiplied)
{
    Begin(R"(<Textures><Note/><Image file="First.png"/><Image file="Second.png"/></Textures>)");
    EXPECT_FALSE(m_ahead.Take(Page("Second.png")));
    const auto image = m_ahead.Take(Page("First.png"));
    ASSERT_TRUE(image);
    EXPECT_EQ(std::vector(image->Pixels(), image->Pixels() + 4), (std::vector<std::uint8_t>{50, 100, 5, 128}));
    EXPECT_FALSE(m_ahead.Take(Page("First.png")));

    Begin(R"(<Gfx><Textures><Image file="Second.png"/></Textures></Gfx>)");
    EXPECT_TRUE(m_ahead.Take(Page("Second.png")));
}

TEST_F(PageAheadTest, WhereNothingCanBeReadOrItIsForgottenThereIsNothing)
{
    for (const char* table : {"no table at all", "<Textures/>", R"(<Textures><Image/></Textures>)",
                              R"(<Textures><Image file="TextureConfig.xml"/></Textures>)",
                              R"(<Textures><Image file="missing.png"/><Image file="First.png"/></Textures>)"})
    {
        Begin(table);
        for (const char* file : {"First.png", "TextureConfig.xml", "missing.png", ""})
        {
            EXPECT_FALSE(m_ahead.Take(Page(file))) << table << ' ' << file;
        }
        EXPECT_FALSE(m_ahead.Take("")) << table;
    }
    Begin(R"(<Textures><Image file="First.png"/></Textures>)");
    m_ahead.Forget();
    EXPECT_FALSE(m_ahead.Take(Page("First.png")));
    // What is still being read when nobody needs it any more is waited for.
    Begin(R"(<Textures><Image file="First.png"/></Textures>)");
}

} // namespace

#include "Gfx/3D/3DEntity.h"

#include "Gfx/3D/TexturedEntity.h"
#include "Managers/3D/3DManager.h"
#include "Widgets/Controls/3DFrame/3DFrame.h"
#include "support/SceneTest.h"

#include <array>
#include <limits>
#include <numbers>

namespace
{

using namespace Gfx::Colours;
using Gfx::C3DEntity;
using Gfx::CColour;
using Gfx::CTexturedEntity;
using Gfx::GeometryPtrList;
using GfxTest::CPicture;
using GfxTest::Rectangle;
using EntityPtr = Core::SharedPtr<C3DEntity>;
using Vector3f = Core::Maths::Vector3<float>;

/// In a frame of 300 by 300 pixels in the stage's corner, over white.
class Entity3DTest : public GfxTest::CStageTest
{
protected:
    void SetUp() override
    {
        CStageTest::SetUp();
        AddTopLevel(new GfxTest::CBlock("behind", 0, 0, k_width, k_height, White));
        m_frame = AddTopLevel(new Gfx::Widgets::C3DFrame("view", 0, 0, 300, 300, false));
    }

    CPicture Draw(const std::vector<EntityPtr>& a_entities)
    {
        for (const EntityPtr& entity : a_entities)
        {
            m_frame->AddEntity(entity);
        }
        const CPicture picture = FreshPicture();
        for (const EntityPtr& entity : a_entities)
        {
            m_frame->RemoveEntity(entity);
        }
        return picture;
    }

    /// A point of the scene's plane z 0.
    static CColour At(const CPicture& a_picture, int a_x, int a_y)
    {
        return a_picture.At(150 + 10 * a_x, 150 - 10 * a_y);
    }

private:
    Core::SharedPtr<Gfx::Widgets::C3DFrame> m_frame;
};

TEST_F(Entity3DTest, ItIsTurnedThenScaledThenMoved)
{
    const EntityPtr entity(new Gfx::CSingleColouredEntity("e", Red, Rectangle(4, 2)));
    entity->SetPosition({5, -3, 0});
    entity->SetScale({2, 1, 1});
    EXPECT_EQ(Draw({entity}).Extent(Red), "120,160 160 x 40");
    entity->SetRotationDegrees({0, 0, 1}, 90);
    EXPECT_EQ(Draw({entity}).Extent(Red), "160,140 80 x 80");
    entity->SetRotationRadians({0, 0, 1}, std::numbers::pi_v<float> / 2);
    entity->SetScale(0.5F);
    EXPECT_EQ(Draw({entity}).Extent(Red), "190,160 20 x 40");
    entity->SetRotationDegrees_AboutYawAxis(180);
    EXPECT_EQ(Draw({entity}).Extent(Red), "180,170 40 x 20");
    entity->Hide();
    EXPECT_EQ(Draw({entity}).Count(Red), 0);
}

TEST_F(Entity3DTest, GroupsTakeTheColoursInTurnAndTheLastOneStays)
{
    // From the left to the right.
    const auto groups = []
    {
        GeometryPtrList list;
        for (const float x : {-8.0F, 0.0F, 8.0F})
        {
            list.push_back(Gfx::MakeGeometry({}, {{x - 2, -2, 0}, {x + 2, -2, 0}, {x, 2, 0}}, 4, Gfx::egtTriangles));
        }
        return list;
    }();
    const auto colours = [&](const EntityPtr& a_entity)
    {
        const CPicture picture = Draw({a_entity});
        return std::array{At(picture, -8, 0), At(picture, 0, 0), At(picture, 8, 0)};
    };
    const EntityPtr entity(new Gfx::CSingleColouredEntity("e", {Red, Lime}, groups));
    EXPECT_EQ(colours(entity), (std::array{Red, Lime, Lime}));
    entity->SetColours({Blue, Red, Lime, Black});
    EXPECT_EQ(colours(entity), (std::array{Blue, Red, Lime}));
    entity->SetColour({255, 0, 0, 0});
    EXPECT_EQ(colours(entity), (std::array{Red, Red, Red})) << "the alpha of colours doesn't count";
    entity->SetAlpha(0.5F);
    const CColour pink(255, 128, 128, 255);
    EXPECT_EQ(colours(entity), (std::array{pink, pink, pink}));
    entity->SetColour(Black);
    const CColour grey(128, 128, 128, 255);
    EXPECT_EQ(colours(entity), (std::array{grey, grey, grey})) << "the entity's own stays";
    entity->SetAlpha(7);
    entity->SetNewGeometry(Rectangle(1, 1));
    EXPECT_EQ(colours(entity), (std::array{White, Black, White}));
}

TEST_F(Entity3DTest, WhatIsTransparentDoesntHideWhatComesAfterIt)
{
    for (const bool isTransparent : {false, true})
    {
        const EntityPtr front = GfxTest::RectangleEntity(Red, 4, 4, 2);
        front->SetAlpha(isTransparent ? 0.5F : 1.0F);
        EXPECT_EQ(At(Draw({front, GfxTest::RectangleEntity(Lime, 4, 4)}), 0, 0), isTransparent ? Lime : Red);
    }
}

TEST_F(Entity3DTest, TypesOfGeometryAreOpenGlsModes)
{
    // As triangles, one; as a strip, two; as lines, two that lie across; as a strip of lines, these and a diagonal.
    const std::vector<Vector3f> vertices{{-4, -4, 0}, {4, -4, 0}, {-4, 4, 0}, {4, 4, 0}};
    const std::vector<Core::Maths::Vector2<float>> texCoords(4);
    struct SCase
    {
        int type;
        std::array<int, 2> plain;
        std::array<int, 2> textured;
    };
    // How many of the pixels below and above the diagonal.
    for (const SCase& row : {SCase{0, {1, 0}, {1, 0}}, SCase{1, {1, 1}, {1, 1}}, SCase{2, {0, 0}, {1, 1}},
                             SCase{3, {0, 0}, {1, 1}}, SCase{9, {1, 1}, {1, 1}}, SCase{-1, {1, 1}, {1, 1}}})
    {
        const auto geometry = Gfx::MakeGeometry(texCoords, vertices, 4, static_cast<Gfx::EGeometryType>(row.type));
        const EntityPtr plain(new Gfx::CSingleColouredEntity("plain", Red, geometry));
        const EntityPtr textured(new CTexturedEntity("textured", {}, geometry));
        textured->DisableTexture();
        textured->SetColour(Red);
        const auto parts = [&](const EntityPtr& a_entity)
        {
            const CPicture picture = Draw({a_entity});
            return std::array{At(picture, -2, -1) == Red ? 1 : 0, At(picture, 2, 1) == Red ? 1 : 0};
        };
        EXPECT_EQ(parts(plain), row.plain) << row.type;
        EXPECT_EQ(parts(textured), row.textured) << row.type;
        EXPECT_EQ(Draw({plain}).At(150, 110) == Red || Draw({plain}).At(150, 109) == Red, row.type != 0) << row.type;
    }
}

TEST_F(Entity3DTest, ATextureIsTintedByTheFirstColourAndBlendsByItsAlpha)
{
    auto& manager = Core::Patterns::StaticSingleton<Gfx::Managers::C3DManager>::ref();
    // Red and green below, blue and half of white above.
    const std::array<unsigned char, 16> pixels{255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 128};
    ASSERT_TRUE(manager.RegisterTextureBuffer(pixels.data(), 2, 2, 4, "quarters", 0, 1));
    auto* const textured = new CTexturedEntity("e", manager.GetTexture("quarters"), Rectangle(4, 4));
    const EntityPtr entity(textured);
    const auto quarters = [&]
    {
        const CPicture picture = Draw({GfxTest::RectangleEntity(Black, 9, 9, -1), entity});
        return std::array{At(picture, -2, -2), At(picture, 2, -2), At(picture, -2, 2), At(picture, 2, 2)};
    };
    const CColour grey(128, 128, 128, 255);
    EXPECT_EQ(quarters(), (std::array{Red, Lime, Blue, grey}));
    entity->SetColours({Yellow, Blue});
    EXPECT_EQ(quarters(), (std::array{Red, Lime, Black, CColour(128, 128, 0, 255)}));
    entity->SetAlpha(0.5F);
    EXPECT_EQ(quarters()[0], CColour(127, 0, 0, 255));
    entity->SetAlpha(1);
    entity->DisableTexture();
    EXPECT_EQ(quarters(), (std::array{Yellow, Yellow, Yellow, Yellow}));
    entity->EnableTexture();
    entity->SetColour(White);

    const std::array<unsigned char, 3> lime{0, 255, 0};
    ASSERT_TRUE(manager.RegisterTextureBuffer(lime.data(), 1, 1, 3, "lime", 0, 1));
    textured->SetTexturePtr(manager.GetTexture("lime"));
    EXPECT_EQ(quarters(), (std::array{Lime, Lime, Lime, Lime}));
    EXPECT_EQ(textured->GetTexturePtr(), manager.GetTexture("lime"));
    // Its first texel, where there are no coordinates, or too few.
    for (const std::size_t count : {0U, 5U})
    {
        entity->SetNewGeometry(Gfx::MakeGeometry(std::vector<Core::Maths::Vector2<float>>(count),
                                                 Rectangle(4, 4)->vertices, 4, Gfx::egtTriangles));
        EXPECT_EQ(quarters(), (std::array{Lime, Lime, Lime, Lime})) << count;
    }
    // The texture is gone, the entity is still there.
    EXPECT_TRUE(manager.DeleteTexture("lime"));
    quarters();
    textured->SetTexturePtr({});
    EXPECT_DEATH(entity->DrawObject(), "m_texturePtr");
    entity->SetNewGeometry({});
    entity->DisableTexture();
    EXPECT_DEATH(entity->DrawObject(), "\\*geometryIter");
    EXPECT_DEATH(C3DEntity("e", Core::SharedPtr<Gfx::SGeometry>()).DrawGeometry(), "\\*geometryIter");
    C3DEntity("e", GeometryPtrList()).DrawGeometry();
}

TEST(IntersectsTest, TheSphereIsMetWhereTheRayEntersIt)
{
    constexpr float miss = std::numeric_limits<float>::max();
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    struct SCase
    {
        Vector3f origin;
        Vector3f direction;
        float distance;
    };
    // A sphere of radius 2 around 1, 2, 3.
    C3DEntity entity("e", Rectangle(2, 1));
    entity.SetPosition({1, 2, 3});
    entity.SetScale(10);
    for (const SCase& row :
         {SCase{{1, 2, 13}, {0, 0, -1}, 8}, SCase{{1, 2, 13}, {0, 0, 1}, -8}, SCase{{1, 2, 3}, {1, 0, 0}, 2},
          SCase{{3, 2, 13}, {0, 0, -1}, miss}, SCase{{1, 4.5F, 13}, {0, 0, -1}, miss}, SCase{{1, 2, 5}, {0, 0, -1}, 0}})
    {
        EXPECT_EQ(entity.Intersects(row.origin, row.direction), row.distance) << row.origin.x << row.origin.z;
    }
    entity.SetNewGeometry(Rectangle(9, 9));
    EXPECT_EQ(entity.Intersects({1, 2, 13}, {0, 0, -1}), 8) << "it keeps its sphere";
    EXPECT_FALSE(entity.Intersects({nan, 0, 0}, {0, 0, -1}) < miss);
    EXPECT_EQ(C3DEntity("e", GeometryPtrList()).Intersects({0, 0, 10}, {0, 0, -1}), miss);
}

} // namespace

#include "Platform/Clutter/TextLayout.h"

#include "support/StageTest.h"

#include <memory>

namespace
{

using TextLayoutTest = GfxTest::CStageTest;

TEST_F(TextLayoutTest, ASingleFamilyIsSpeltAsInItsFileAndAllElseStaysAsWritten)
{
    struct SCase
    {
        const char* font;
        const char* family;
        int size;
        PangoWeight weight;
    };
    const std::unique_ptr<PangoLayout, decltype(&g_object_unref)> layout(
        Platform::NewLayout(clutter_stage_get_default()), g_object_unref);
    for (const SCase& test :
         {SCase{"DejaVuSans 20px", "DejaVu Sans", 20, PANGO_WEIGHT_NORMAL},
          SCase{"DejaVuSans,Bold 12px", "DejaVu Sans", 12, PANGO_WEIGHT_BOLD},
          SCase{"DejaVuSans 14px", "DejaVu Sans", 14, PANGO_WEIGHT_NORMAL},
          SCase{"DejaVuSans,Sans 20px", "DejaVuSans,Sans", 20, PANGO_WEIGHT_NORMAL},
          SCase{"Unknown 20px", "Unknown", 20, PANGO_WEIGHT_NORMAL}, SCase{"20px", nullptr, 20, PANGO_WEIGHT_NORMAL}})
    {
        Platform::SetLayoutFont(layout.get(), test.font);
        const PangoFontDescription* const found = pango_layout_get_font_description(layout.get());
        EXPECT_STREQ(pango_font_description_get_family(found), test.family) << test.font;
        EXPECT_EQ(pango_font_description_get_size(found), test.size * PANGO_SCALE) << test.font;
        EXPECT_EQ(pango_font_description_get_weight(found), test.weight) << test.font;
    }
}

} // namespace

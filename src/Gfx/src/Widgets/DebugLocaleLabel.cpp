#include "Widgets/DebugLocaleLabel.h"

#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"
#include "Managers/Gfx/GfxManager.h"
#include "Platform/Clutter/Clutter.h"

#include <array>
#include <string>

namespace Gfx::Widgets
{

using Core::Patterns::StaticSingleton;
using Managers::CConfigManager;

namespace
{

struct SFontStyle
{
    std::string name = "Sans";
    std::string colour = "White";
    int size = 10;
    std::string alignment = "Top,Left";
};

constexpr std::array s_fontKeys{
    Managers::SStyleKey<SFontStyle>{"/Gfx/Debug/LocaleLabel/Font/Name", &SFontStyle::name},
    Managers::SStyleKey<SFontStyle>{"/Gfx/Debug/LocaleLabel/Font/Colour", &SFontStyle::colour},
    Managers::SStyleKey<SFontStyle>{"/Gfx/Debug/LocaleLabel/Font/Size", &SFontStyle::size},
    Managers::SStyleKey<SFontStyle>{"/Gfx/Debug/LocaleLabel/Font/Alignment", &SFontStyle::alignment},
};

Text::CFontSettings ReadFont()
{
    const auto style = Managers::ReadStyle(s_fontKeys);
    return {style.name, ColourFromString(style.colour), style.size, AlignmentFromString(style.alignment)};
}

const CConfigManager& Config()
{
    return StaticSingleton<CConfigManager>::ref();
}

} // namespace

CDebugLocaleLabel::CDebugLocaleLabel() : m_font(ReadFont()) {}

CDebugLocaleLabel::~CDebugLocaleLabel()
{
    if (m_frame != nullptr)
    {
        clutter_actor_destroy(m_frame);
        g_object_unref(m_frame);
    }
}

bool CDebugLocaleLabel::IsOn()
{
    return StaticSingleton<Managers::CGfxManager>::ref().DebugLocaleLabels();
}

void CDebugLocaleLabel::Update(ClutterActor* a_group, const Text::CLocalisedText& a_text, bool a_parseMarkup,
                               int a_width)
{
    if (!IsOn() || a_text.Raw().empty() || m_label.Exists())
    {
        return;
    }
    const std::string mark =
        a_text.IsLocalised() ? a_text.Id() : Config().Get<std::string>("/Gfx/Debug/LocaleLabel/NotLocalisedText", "-");
    m_label.Create(a_group, m_font, "[" + mark + "]");
    m_label.UseMarkup(a_parseMarkup);
    m_label.WrapLines(false);
    m_label.SetWidth(a_width);
}

void CDebugLocaleLabel::Place(ClutterActor* a_group, const CTextActor& a_text, const Common::SMargins& a_margins,
                              const STextSize& a_textSize)
{
    if (!IsOn() || !m_label.Exists())
    {
        return;
    }
    const Common::CPoint place = a_text.Position();
    m_label.MoveTo(place - Common::CPoint(0, Config().Get<int>("/Gfx/Debug/LocaleLabel/TopOffset", 0)));
    if (m_frame != nullptr)
    {
        clutter_actor_destroy(m_frame);
        g_object_unref(m_frame);
    }
    m_frame = CLUTTER_ACTOR(g_object_ref_sink(clutter_rectangle_new()));
    auto* const frame = CLUTTER_RECTANGLE(m_frame);
    const ClutterColor clear{0, 0, 0, 0};
    const ClutterColor border =
        ColourFromString(Config().Get<std::string>("/Gfx/Debug/LocaleLabel/BorderColour", "White")).AsClutterColour();
    clutter_rectangle_set_color(frame, &clear);
    clutter_rectangle_set_border_color(frame, &border);
    clutter_rectangle_set_border_width(frame, 1);
    clutter_actor_set_size(m_frame, static_cast<float>(a_margins.Horizontal() + a_textSize.width),
                           static_cast<float>(a_margins.Vertical() + a_textSize.height));
    clutter_container_add_on_top(a_group, m_frame);
    clutter_actor_set_position(m_frame, static_cast<float>(place.X()), static_cast<float>(place.Y()));
}

} // namespace Gfx::Widgets

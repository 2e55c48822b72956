#include "Widgets/Controls/Button/Button.h"

#include "Core/Localisation/Manager.h"
#include "Core/Utilities.h"
#include "Gfx/Common/Drawing.h"
#include "Managers/Config/StyleKeys.h"
#include "Platform/Clutter/Clutter.h"

#include <algorithm>

namespace Gfx::Widgets
{

namespace
{

constexpr int k_priority = 10000;
constexpr const char* k_defaultSet = "Default";

/// What a button keeps its content from its edges, whatever it is drawn with.
constexpr Common::SMargins k_margins{3, 3, 3, 3};

/// What a disabled button's picture is multiplied by.
constexpr int k_disabledGrey = 128;

struct SStyle
{
    std::string inactive = "ControlInactive_Up";
    std::string hover = "ControlHover";
    std::string active = "ControlActive_Down";
    std::string flash = "Red_Up";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Button/Textures/Inactive", &SStyle::inactive},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Button/Textures/Hover", &SStyle::hover},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Button/Textures/Active", &SStyle::active},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Button/Textures/Flash", &SStyle::flash},
};

constexpr std::array s_properties{
    SProperty<CButton>{"TextureSet", [](const CButton& a_button) { return a_button.TextureSet(); },
                       [](CButton& a_button, const std::string& a_value) { a_button.ChangeTextureSet(a_value); }},
    SProperty<CButton>{"Disabled", [](const CButton& a_button) { return TextFromBool(a_button.Disabled()); },
                       [](CButton& a_button, const std::string& a_value) { a_button.Disabled(IsTrue(a_value)); }},
    SProperty<CButton>{"Enabled", nullptr,
                       [](CButton& a_button, const std::string& a_value) { a_button.Disabled(a_value == "False"); }},
    SProperty<CButton>{"Flashing", nullptr,
                       [](CButton& a_button, const std::string& a_value) { a_button.Flashing(IsTrue(a_value)); }},
    SProperty<CButton>{"Image", nullptr,
                       [](CButton& a_button, const std::string& a_value) { a_button.SetImage(a_value); }},
};

/// Where an image of a_size begins along one axis of a button of a_length. At an edge it keeps twice the margin.
int PlaceImage(int a_length, int a_size, int a_firstMargin, int a_lastMargin, bool a_first, bool a_last)
{
    if (a_first)
    {
        return 2 * a_firstMargin;
    }
    const std::int64_t spare = std::int64_t{a_length} - a_size;
    return Common::detail::Saturated(a_last ? spare - 2 * a_lastMargin
                                            : (spare - a_lastMargin - a_firstMargin) / 2 + a_firstMargin);
}

} // namespace

std::span<const SProperty<CButton>> CButton::PropertyTable()
{
    return s_properties;
}

void CButton::STextureSet::DropTextures()
{
    for (CTextureLayer& layer : layers)
    {
        layer.DropTexture();
    }
}

CButton::CButton(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_allowHover)
    : CWithProperties(a_name, "Button", a_x, a_y, a_width, a_height, false)
    , m_text("Button")
    , m_allowHover(a_allowHover)
    , m_current(m_textureSets.try_emplace(k_defaultSet).first)
{
    InitialiseClutterGroup();
    const SStyle& style = Managers::ReadStyle(s_styleKeys);
    SetFlashTexture(style.flash);
    MousePriority(k_priority);
    SetTextures(style.inactive, style.hover, style.active, k_defaultSet);
    m_text.Create(GetActor());
    if (Core::Patterns::StaticSingleton<Managers::CConfigManager>::ref().ClipText())
    {
        clutter_actor_set_clip(GetActor(), 0, 0, static_cast<float>(Width()), static_cast<float>(Height()));
    }
}

void CButton::LoadTextures()
{
    for (CTextureLayer& layer : m_current->second.layers)
    {
        if (!layer.HasTexture())
        {
            layer.Retrieve({0, 0, Width(), Height()});
        }
    }
    if (m_hasImage)
    {
        LoadImage();
    }
}

void CButton::LoadImage()
{
    const int horizontal = m_imageAlignment & eaHorizontalMask;
    const int vertical = m_imageAlignment & eaVerticalMask;
    const Common::CAABB place(
        PlaceImage(Width(), m_imageWidth, k_margins.left, k_margins.right, horizontal == eaLeft, horizontal == eaRight),
        PlaceImage(Height(), m_imageHeight, k_margins.top, k_margins.bottom, vertical == eaTop, vertical == eaBottom),
        m_imageWidth, m_imageHeight);
    const Core::Localisation::CManager* localisation = Core::Localisation::CManager::Instance();
    m_image.RetrieveImage(localisation != nullptr ? localisation->ProcessEscapes(m_imageName) : m_imageName,
                          m_imageIsFile, place);
}

void CButton::Text(const std::string& a_text)
{
    const CLife life(Children());
    m_text.SetRaw(a_text);
    UpdateLocalisedText();
    // A child's text that was made anew may have run a handler that ends this widget.
    if (!life.IsOver())
    {
        UpdateLabelPosition();
        UpdateCustomInfo();
    }
}

void CButton::Font(const Text::CFontSettings& a_font)
{
    m_text.Font(a_font);
    UpdateDisabled();
    UpdateLabelPosition();
}

void CButton::ParseMarkup(bool a_parse)
{
    if (m_text.ParseMarkup(a_parse))
    {
        UpdateLabelPosition();
    }
}

void CButton::SetEllipsisMode(Text::EEllipsisMode a_mode)
{
    m_text.Actor().SetEllipsisMode(a_mode);
    UpdateLabelPosition();
}

void CButton::SetImage(const std::string& a_name)
{
    ChangeImage(a_name);
}

void CButton::SetImage(const std::string& a_name, int a_alignment, int a_width, int a_height)
{
    m_imageAlignment = a_alignment;
    m_imageWidth = a_width;
    m_imageHeight = a_height;
    ChangeImage(a_name);
}

void CButton::ChangeImage(const std::string& a_name)
{
    if (a_name == m_imageName)
    {
        return;
    }
    m_hasImage = true;
    m_imageIsFile = Core::Utilities::FileExists(a_name);
    m_imageName = a_name;
    m_image.DropTexture();
    LoadTextures();
    QueueRedraw();
    UpdateCustomInfo();
}

void CButton::ClearImage()
{
    m_hasImage = false;
    QueueRedraw();
    UpdateCustomInfo();
}

void CButton::SetTextures(const std::string& a_inactive, const std::string& a_hover, const std::string& a_active,
                          const std::string& a_setName)
{
    STextureSet& set = m_textureSets[a_setName];
    const std::array<const std::string*, k_states> names{&a_inactive, &a_hover, &a_active};
    if (std::equal(names.begin(), names.end(), set.layers.begin(),
                   [](const std::string* a_name, const CTextureLayer& a_layer)
                   { return *a_name == a_layer.Element(); }))
    {
        return;
    }
    for (std::size_t i = 0; i < k_states; ++i)
    {
        set.layers[i].Element(*names[i]);
    }
    set.DropTextures();
    if (a_setName == TextureSet())
    {
        LoadTextures();
        QueueRedraw();
    }
}

void CButton::ChangeTextureSet(const std::string& a_setName)
{
    const auto set = m_textureSets.find(a_setName);
    if (set != m_current && set != m_textureSets.end())
    {
        m_current = set;
        LoadTextures();
        Invalidate(false);
    }
}

void CButton::SetFlashTexture(const std::string& a_element)
{
    m_flash.Element(a_element);
    LoadFlashTexture();
}

void CButton::LoadFlashTexture()
{
    m_flash.Retrieve({0, 0, Width(), Height()});
}

void CButton::Flashing(bool a_flashing)
{
    if (a_flashing != m_flashing)
    {
        m_flashing = a_flashing;
        m_flashCounter = 0;
        m_flashRising = false;
        QueueRedraw();
    }
}

void CButton::Disabled(bool a_disabled)
{
    if (a_disabled == m_disabled)
    {
        return;
    }
    m_disabled = a_disabled;
    UpdateDisabled();
    if (m_disabled)
    {
        m_state = ebsInactive;
    }
    Invalidate(false);
}

void CButton::UpdateDisabled()
{
    const CColour& colour = m_text.Font().colour;
    const auto half = [](unsigned char a_component) { return static_cast<unsigned char>(a_component >> 1U); };
    m_text.Actor().SetColour(
        m_disabled ? CColour(half(colour.Red()), half(colour.Green()), half(colour.Blue()), colour.Alpha()) : colour);
}

void CButton::Invalidate(bool a_recursive)
{
    UpdateLabelPosition();
    LoadTextures();
    CWidget::Invalidate(a_recursive);
}

void CButton::DrawSelf() const
{
    const auto alpha = TransparencyColour().Alpha();
    const CColour colour =
        m_disabled ? CColour(k_disabledGrey, k_disabledGrey, k_disabledGrey, alpha) : TransparencyColour();
    if (m_disabled)
    {
        Utilities::SetColour(colour);
    }
    m_current->second.layers[m_state].Draw();
    if (m_flashing && m_flash.IsValid())
    {
        DrawFlash(colour);
    }
    if (m_hasImage)
    {
        m_image.Draw();
    }
    if (m_disabled)
    {
        Utilities::SetColour(CColour(255, 255, 255, 255));
    }
}

void CButton::DrawFlash(const CColour& a_colour) const
{
    const float part = static_cast<float>(m_flashCounter) / static_cast<float>(m_flashPeriod);
    const float alpha = part * static_cast<float>(a_colour.Alpha());
    // A period of 0 makes this no number, or infinite.
    const auto whole =
        alpha > 0.0F ? static_cast<unsigned char>(std::min(alpha, 255.0F)) : static_cast<unsigned char>(0);
    // Not a_colour: while the button's window is dragged, its picture is half transparent.
    const ClutterColor before = cogl_current_color();
    Utilities::SetColour(CColour(a_colour.Red(), a_colour.Green(), a_colour.Blue(), whole));
    m_flash.Draw();
    cogl_color(&before);
}

void CButton::Idle()
{
    if (!m_flashing)
    {
        return;
    }
    m_flashCounter += m_flashRising ? 1 : -1;
    if (m_flashCounter > m_flashPeriod)
    {
        m_flashCounter = m_flashPeriod;
        m_flashRising = false;
    }
    if (m_flashCounter < 0)
    {
        m_flashCounter = 0;
        m_flashRising = true;
    }
    QueueRedraw();
}

void CButton::Resize(int a_width, int a_height)
{
    if (ResizeSelf(a_width, a_height))
    {
        m_current->second.DropTextures();
        LoadTextures();
    }
}

void CButton::MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote)
{
    if (a_remote && RemoteLockout())
    {
        return;
    }
    EState next = ebsInactive;
    if (!m_disabled)
    {
        const CLife life(Children());
        CWidget::MouseEvent(a_event, a_buttons, a_point, a_remote);
        if (life.IsOver())
        {
            return;
        }
        // A handler may just have disabled it.
        next = m_disabled ? ebsInactive : StateAfter(a_event, a_buttons, a_point);
    }
    if (next != m_state)
    {
        m_state = next;
        Invalidate(true);
    }
}

CButton::EState CButton::StateAfter(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point) const
{
    const bool held = (a_buttons & Events::embFirst) != 0;
    switch (a_event)
    {
    case Events::Enter: return held ? ebsActive : m_state;
    case Events::Leave: return ebsInactive;
    case Events::Move: return m_allowHover && !held ? ebsHover : m_state;
    case Events::FirstDown: return ebsActive;
    case Events::FirstUp: return m_allowHover && AbsolutePointInWidget(a_point) ? ebsHover : ebsInactive;
    case Events::FirstClick: return m_allowHover ? ebsHover : ebsInactive;
    default: return m_state;
    }
}

void CButton::UpdateLocalisedText()
{
    m_text.Refresh();
    m_text.UpdateDebugLabel(Width());
    Invalidate(false);
    CWidget::UpdateLocalisedText();
}

void CButton::UpdateStyle()
{
    if (!UpdateStyleSelf())
    {
        return;
    }
    m_text.UpdateStyle();
    for (auto& [name, set] : m_textureSets)
    {
        set.DropTextures();
    }
    LoadTextures();
    LoadFlashTexture();
    UpdateDisabled();
    UpdateLabelPosition();
    QueueRedraw();
}

void CButton::UpdateCustomInfo()
{
    if (!HasCustomInfo())
    {
        return;
    }
    const auto yesOrNo = [](bool a_value) { return a_value ? "Yes" : "No"; };
    SetCustomInfo("Text", m_text.Display());
    SetCustomInfo("Image", m_hasImage ? m_imageName : "");
    SetCustomInfo("TextureSet", TextureSet());
    SetCustomInfo("Flashing", yesOrNo(m_flashing));
    SetCustomInfo("Disabled", yesOrNo(m_disabled));
}

void CButton::UpdateLabelPosition()
{
    if (clutter_actor_get_stage(GetActor()) == nullptr)
    {
        return;
    }
    CTextActor& actor = m_text.Actor();
    const int available = Width() - k_margins.Horizontal();
    STextSize textSize = actor.NaturalSize();
    // As unsigned numbers: a button narrower than its margins has all the room there is.
    if (actor.EllipsisMode() != Text::eemNone &&
        static_cast<unsigned>(available) < static_cast<unsigned>(textSize.width))
    {
        actor.SetWidth(available);
        textSize = actor.Size();
    }
    else
    {
        actor.SetSize(-1, -1);
    }
    m_text.Place({Width(), Height()}, textSize, k_margins, ECentring::Unsigned);
    m_text.PlaceDebugLabel(k_margins, textSize);
}

} // namespace Gfx::Widgets

#pragma once

#include "Core/Api.h"
#include "Gfx/Common/Alignment.h"
#include "Widgets/ControlText.h"
#include "Widgets/Property.h"
#include "Widgets/TextureLayer.h"
#include "Widgets/Widget.h"

#include <array>
#include <cstddef>
#include <map>
#include <span>
#include <string>

namespace Gfx::Widgets
{

/// A push button: a stretched element that follows the pointer through three states, an image, an overlay that can
/// flash, and a text. The click is told by CWidget's click handler.
///
/// The looks of the three states come in named sets; at first there is one, "Default". A disabled button is drawn grey,
/// and deaf to the pointer. A text that is too long for the button and isn't shortened isn't shown.
///
/// Properties: "TextureSet", "Disabled" ("True"), "Enabled" (write: "False" disables), "Flashing" (write), "Image"
/// (write), beside those of CWidget.
///
/// Configuration: `/Gfx/Controls/Button/Textures/Inactive` ("ControlInactive_Up"), `Hover` ("ControlHover"), `Active`
/// ("ControlActive_Down"), `Flash` ("Red_Up"), and the font's keys.
class GFX_API CButton : public CWithProperties<CButton, CWidget>
{
public:
    [[nodiscard]] static std::span<const SProperty<CButton>> PropertyTable();

    /// Which of its three looks a button has.
    enum EState
    {
        ebsInactive = 0,
        ebsHover = 1,
        ebsActive = 2
    };

    /// With a_allowHover the button shows that the pointer is over it.
    CButton(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_allowHover);

    /// Makes whatever quads are missing.
    virtual void LoadTextures();

    /// The key of a localised text, or else the text.
    [[nodiscard]] std::string Text() const { return m_text.Id(); }
    void Text(const std::string& a_text);

    /// What is changed of the first is seen after the next UpdateStyle() or Invalidate().
    [[nodiscard]] Text::CFontSettings& Font() { return m_text.Font(); }
    void Font(const Text::CFontSettings& a_font);

    /// Whether the text is Pango markup.
    [[nodiscard]] bool ParseMarkup() const { return m_text.ParseMarkup(); }
    void ParseMarkup(bool a_parse);

    void SetEllipsisMode(Text::EEllipsisMode a_mode);

    /// Shows an image: a file if there is one of that path, or else an element of a texture page. In an element's
    /// name, "%LANG%" stands for the language. Does nothing if the name is the same.
    void SetImage(const std::string& a_name);

    /// a_alignment is packed; a_width and a_height are the image's size on the button, in pixels.
    void SetImage(const std::string& a_name, int a_alignment, int a_width, int a_height);
    void ClearImage();

    /// Makes or changes a set: the elements that the three states are drawn with.
    void SetTextures(const std::string& a_inactive, const std::string& a_hover, const std::string& a_active,
                     const std::string& a_setName);

    /// Does nothing if there is no such set. A set's quads are kept: one that comes back after a resize is drawn at its
    /// old size, until something makes them anew.
    void ChangeTextureSet(const std::string& a_setName);
    [[nodiscard]] const std::string& TextureSet() const { return m_current->first; }

    /// The overlay has the size that the button has now, and keeps it through a resize until this is called again or
    /// the style is read anew.
    void SetFlashTexture(const std::string& a_element);

    /// Lets the overlay fade in and out.
    void Flashing(bool a_flashing);
    [[nodiscard]] bool Flashing() const { return m_flashing; }

    /// Half a cycle, in idle rounds.
    void SetFlashPeriod(int a_rounds) { m_flashPeriod = a_rounds; }

    [[nodiscard]] bool Disabled() const { return m_disabled; }
    void Disabled(bool a_disabled);

    /// Gives the text its colour, dimmed on a disabled button.
    void UpdateDisabled();

    [[nodiscard]] EState State() const { return m_state; }

    void Invalidate(bool a_recursive) override;
    void DrawSelf() const override;
    void Idle() override;
    void Resize(int a_width, int a_height) override;
    void MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote) override;
    void UpdateLocalisedText() override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

private:
    static constexpr std::size_t k_states = 3;

    /// One look of the button: a layer for each state.
    struct STextureSet
    {
        std::array<CTextureLayer, k_states> layers;

        void DropTextures();
    };

    [[nodiscard]] EState StateAfter(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point) const;
    void ChangeImage(const std::string& a_name);
    void LoadImage();
    void LoadFlashTexture();
    void DrawFlash(const CColour& a_colour) const;
    void UpdateLabelPosition();

    using TextureSets = std::map<std::string, STextureSet>;

    CControlText m_text;
    EState m_state = ebsInactive;
    bool m_allowHover;
    bool m_hasImage = false;
    int m_imageAlignment = eaDefault;
    std::string m_imageName;
    bool m_imageIsFile = false;
    int m_imageWidth = 0;
    int m_imageHeight = 0;
    CTextureLayer m_image;
    TextureSets m_textureSets;
    TextureSets::iterator m_current;
    CTextureLayer m_flash;
    bool m_disabled = false;
    bool m_flashing = false;
    int m_flashPeriod = 12;
    int m_flashCounter = 0;
    bool m_flashRising = true;
};

} // namespace Gfx::Widgets

#pragma once

#include "Core/Api.h"
#include "Widgets/ControlText.h"
#include "Widgets/Property.h"
#include "Widgets/TextureLayer.h"
#include "Widgets/Widget.h"

#include <span>
#include <string>

namespace Gfx::Widgets
{

/// A piece of text, on a stretched background if that is switched on. The text is a literal, or the key of a localised
/// one behind "Localised:".
///
/// Text lies in the widget by the font's alignment, within at most 8 pixels of each border of the background. With
/// autoSize the widget follows the size of its text, which then lies at the top left.
///
/// Properties: "Text", "Background", "ParseMarkup", "BackgroundTexture".
///
/// Configuration: `/Gfx/Controls/Label/Textures/Background/Raised` ("Panel_Up") and `Lowered` ("Panel_Down"),
/// `/Gfx/Controls/Label/Style/HasBackground` ("No"), and the font's keys.
class GFX_API CLabel : public CWithProperties<CLabel, CWidget>
{
public:
    [[nodiscard]] static std::span<const SProperty<CLabel>> PropertyTable();

    /// a_wrap breaks lines at the widget's width; with a_parseMarkup the text is Pango markup; a_raised chooses between
    /// the two backgrounds of the configuration.
    CLabel(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_wrap, bool a_autoSize,
           bool a_parseMarkup, const std::string& a_text, bool a_raised);

    /// Makes the quads anew, for the elements, the theme and the size that hold now. Happens by itself.
    void LoadTextures();

    /// The key of a localised text, or else the text.
    [[nodiscard]] std::string Text() const { return m_text.Id(); }

    /// Does nothing if it is the text already, prefix and all.
    void Text(const std::string& a_text);

    [[nodiscard]] const Text::CFontSettings& Font() const { return m_text.Font(); }

    /// With autoSize, the alignment becomes top and left.
    void Font(const Text::CFontSettings& a_font);

    [[nodiscard]] bool ParseMarkup() const { return m_text.ParseMarkup(); }
    void ParseMarkup(bool a_parse);

    [[nodiscard]] bool Background() const { return m_hasBackground; }
    void Background(bool a_background);

    [[nodiscard]] std::string BackgroundTexture() const { return m_background.Element(); }
    void BackgroundTexture(const std::string& a_element);

    void DrawSelf() const override;
    void Resize(int a_width, int a_height) override;
    void UpdateLocalisedText() override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

private:
    void UpdateLabelPosition();
    /// The background has changed.
    void KeepClearOfBorders();

    CControlText m_text;
    bool m_wrap;
    bool m_autoSize;
    bool m_hasBackground = false;
    CTextureLayer m_background;
    /// How many calls of UpdateLabelPosition are under way, each from a resize handler of the one before.
    int m_fits = 0;
};

} // namespace Gfx::Widgets

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

/// An indicator with a text beside it, which a click toggles. It is made as high as its indicator.
///
/// Properties: "Checked" and "ReadOnly" ("True"; anything else is false).
///
/// Configuration: `/Gfx/Controls/CheckBox/Textures/Background` ("Panel_Down") and `Checked` ("Indicator_Up"),
/// `/Gfx/Controls/CheckBox/Image/Width` and `Height` (20), `Buffer` (5, the gap before the text), and the font's keys.
class GFX_API CCheckBox : public CWithProperties<CCheckBox, CWidget>
{
public:
    [[nodiscard]] static std::span<const SProperty<CCheckBox>> PropertyTable();

    CCheckBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, const std::string& a_text);

    [[nodiscard]] virtual bool Checked() const { return m_checked; }
    virtual void Checked(bool a_checked);

    /// A read-only box is dead to the pointer, handlers included, and can still be changed by the application.
    [[nodiscard]] virtual bool ReadOnly() const { return m_readOnly; }
    virtual void ReadOnly(bool a_readOnly) { m_readOnly = a_readOnly; }

    /// The key of a localised text, or else the text.
    [[nodiscard]] std::string Text() const { return m_text.Id(); }
    void Text(const std::string& a_text);

    [[nodiscard]] const Text::CFontSettings& Font() const { return m_text.Font(); }
    void Font(const Text::CFontSettings& a_font);

    /// Makes the quads anew, for the elements, the theme and the size that hold now. Happens by itself.
    void LoadTextures();

    /// Places the text beside the indicator. Happens by itself.
    void UpdateLabelPosition();

    void DrawSelf() const override;
    void Resize(int a_width, int a_height) override;
    void MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote) override;
    void UpdateLocalisedText() override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

protected:
    /// For a kind of check box that has keys, a font and a type word of its own.
    CCheckBox(const std::string& a_name, const std::string& a_type, int a_x, int a_y, int a_width, int a_height,
              const std::string& a_text);

    /// Changes the state and redraws, whatever an override of Checked() would do beside that.
    void StoreChecked(bool a_checked);

private:
    /// Where the text begins, right of the indicator.
    [[nodiscard]] int TextLeft() const;

    CControlText m_text;
    bool m_checked = false;
    bool m_readOnly = false;
    int m_imageWidth = 0;
    int m_imageHeight = 0;
    int m_imageBuffer = 0;
    CTextureLayer m_background;
    CTextureLayer m_mark;
};

} // namespace Gfx::Widgets

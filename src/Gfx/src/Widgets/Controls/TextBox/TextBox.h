#pragma once

#include "Core/Api.h"
#include "Core/SharedPtr.h"
#include "Gfx/Text/FontSettings.h"
#include "Widgets/Controls/Label/Label.h"
#include "Widgets/Controls/Panel/Panel.h"
#include "Widgets/Property.h"

#include <span>
#include <string>

namespace Gfx::Widgets
{

/// A long text, broken at the width of the box, and scrolled if it is too long for it. The text is a literal, or the
/// key of a localised one behind "Localised:"; it lies at the top left, whatever alignment the font has. Room for the
/// scroll bar is always kept.
///
/// Properties: "Text", "ParseMarkup".
///
/// Configuration: `/Gfx/Controls/TextBox/Textures/Background` ("Panel_Down"), the font's keys, and the panel's.
class GFX_API CTextBox : public CWithProperties<CTextBox, CPanel>
{
public:
    [[nodiscard]] static std::span<const SProperty<CTextBox>> PropertyTable();

    /// The text of a box that isn't scrollable runs over its bottom edge.
    CTextBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_scrollable);

    /// The key of a localised text, or else the text.
    [[nodiscard]] std::string Text() const { return m_label->Text(); }
    void Text(const std::string& a_text);

    [[nodiscard]] bool ParseMarkup() const { return m_label->ParseMarkup(); }
    void ParseMarkup(bool a_parse);

    /// Whether the text fits is found out at the next change of text or size, not by a change of font.
    [[nodiscard]] const Text::CFontSettings& Font() const { return m_label->Font(); }
    void Font(const Text::CFontSettings& a_font);

    void Resize(int a_width, int a_height) override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

private:
    /// Of the label in a box of that size.
    [[nodiscard]] STextSize LabelSize(int a_width, int a_height) const;

    Text::CFontSettings m_font;
    Core::SharedPtr<CLabel> m_label;
};

} // namespace Gfx::Widgets

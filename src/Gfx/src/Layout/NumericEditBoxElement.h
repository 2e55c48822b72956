#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Widgets
{
class CNumericEditBox;
}

namespace Gfx::Layout
{

/// A Widgets::CNumericEditBox. Layouts know no word for it: an application that wants it registers it under one of its
/// own. Children: "Events", with "TextChanged" beside the base events, "Font", and "Fields", of nodes of any name with
/// `label` and `length`.
class GFX_API CNumericEditBoxElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SEventInfo> Events() const override;
    [[nodiscard]] std::vector<SNodeInfo> Nodes() const override;

    /// Takes the events of an "Events" node over.
    void ProcessEvents(const Core::IO::XMLNode& a_node);

    /// For the widget.
    void TextChangedHandler(Widgets::CWidget* a_widget);

private:
    static void ProcessFields(Widgets::CNumericEditBox& a_box, const Core::IO::XMLNode& a_fields);

    ActionList m_textChangedActions;
};

} // namespace Gfx::Layout

#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Widgets
{
class CButton;
}

namespace Gfx::Layout
{

/// "Button": a Widgets::CButton. Children: "Events", "Font", and any number of "TextureSet", each with an id and the
/// elements "Inactive", "Hover" and "Active".
///
/// Process is a template method: a class of an application's own can make another widget, or exchange a step.
class GFX_API CButtonElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SNodeInfo> Nodes() const override;

    /// A new button, which is then the element's widget.
    virtual Core::SharedPtr<Widgets::CButton> CreateWidget(const Core::IO::XMLNode& a_node);

    /// Gives the new widget what the attributes say.
    virtual void InitWidget(const Core::IO::XMLNode& a_node);

    /// The three steps of what stands in the button's node: all of its children, and of these "TextureSet" and
    /// "Events".
    virtual void ProcessChildren(const Core::IO::XMLNode& a_node);
    virtual void ProcessTextureSet(const Core::IO::XMLNode& a_node);
    virtual void ProcessEvents(const Core::IO::XMLNode& a_node);

protected:
    /// The element's widget.
    [[nodiscard]] Widgets::CButton& Button();
};

} // namespace Gfx::Layout

#pragma once

#include "Core/Api.h"
#include "Core/SharedPtr.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Widgets
{
class CRadioGroup;
}

namespace Gfx::Layout
{

/// "RadioButton", within a "RadioGroup": a Widgets::CRadioButton, which the group puts into the group's parent.
/// Children: "Events", "Font".
class GFX_API CRadioButtonElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SNodeInfo> Nodes() const override { return {FontNode()}; }
};

/// "RadioGroup", within a container: a Widgets::CRadioGroup of its "RadioButton" children, whose places are relative to
/// the container. It has no attributes and no widget.
class GFX_API CRadioGroupElement : public CElement
{
public:
    CRadioGroupElement();
    ~CRadioGroupElement() override;

    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override { return {}; }
    [[nodiscard]] std::vector<SEventInfo> Events() const override { return {}; }
    [[nodiscard]] std::vector<SNodeInfo> Nodes() const override;

private:
    Core::SharedPtr<Widgets::CRadioGroup> m_group;
    std::vector<ElementPtr> m_buttons;
};

} // namespace Gfx::Layout

#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx
{
class C3DEntity;
}

namespace Gfx::Layout
{

/// "Frame3D": a Widgets::C3DFrame, to which the application adds the entities. Children: "Events", with "EntityHit"
/// beside the base events.
class GFX_API C3DFrameElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SEventInfo> Events() const override;

    /// Takes the events of an "Events" node over.
    void ProcessEvents(const Core::IO::XMLNode& a_node);

    /// For the widget.
    void EntityHitHandler(Widgets::CWidget* a_widget, Core::SharedPtr<C3DEntity> a_entity);

private:
    ActionList m_entityHitActions;
};

} // namespace Gfx::Layout

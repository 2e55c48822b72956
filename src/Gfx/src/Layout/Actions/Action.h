#pragma once

#include "Core/Api.h"
#include "Core/SharedPtr.h"

#include <string>
#include <vector>

namespace Gfx::Layout
{
class CElement;
}

namespace Gfx::Widgets
{
class CWidget;
}

namespace Gfx::Layout::Actions
{

/// One step of what a layout does at an event. Steps don't change once they are read, and run again and again.
class GFX_API CAction
{
public:
    CAction() = default;
    virtual ~CAction() = default;
    CAction(const CAction&) = delete;
    CAction& operator=(const CAction&) = delete;

    /// Runs the step on behalf of the element whose list it is in; false ends the list.
    virtual bool Execute(CElement& a_element) = 0;

protected:
    /// What an operand stands for: with "id>Property" that property of that widget; otherwise the flag of that name,
    /// or else the own widget's property of that name, or else the text itself. A widget that isn't there is not
    /// "Visible".
    [[nodiscard]] static std::string GetProperty(const std::string& a_text, CElement& a_element);

    /// The widget of that name beside the element's own, or anywhere for an element at the top level; empty if there
    /// is none.
    [[nodiscard]] static Core::SharedPtr<Widgets::CWidget> FindWidget(const std::string& a_id, CElement& a_element);
};

using ActionList = std::vector<Core::SharedPtr<CAction>>;

} // namespace Gfx::Layout::Actions

#pragma once

#include "Core/Functor.h"
#include "Layout/Actions/Action.h"
#include "Layout/Attribute.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace Gfx::Layout::Actions
{

/// Shows a message box, without waiting for its answer; each button has a list of its own, which runs on behalf of the
/// element that the action was made for.
class GFX_API CShowMessageBox : public CAction
{
public:
    static constexpr std::size_t k_buttons = 3;

    /// The attributes of the action's node.
    struct SValues
    {
        int width = 400;
        int height = 300;
        std::string title;
        std::string message;
        std::string btn1;
        std::string btn2;
        std::string btn3;
    };

    CShowMessageBox(CElement& a_element, SValues a_values, std::array<ActionList, k_buttons> a_lists);

    /// The attributes of a node, and the list of what they are.
    [[nodiscard]] static SValues Read(const Core::IO::XMLNode& a_node);
    static void Describe(std::vector<SAttributeInfo>& a_list);

    bool Execute(CElement& a_element) override;

    /// Runs the list of a button, counted from 1; any other number does nothing.
    void OptionSelected(int a_option);

private:
    CElement& m_element;
    SValues m_values;
    std::array<ActionList, k_buttons> m_lists;
    Core::Functor<void, int>::Method<CShowMessageBox> m_callback;
};

} // namespace Gfx::Layout::Actions

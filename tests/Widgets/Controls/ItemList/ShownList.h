#pragma once

#include "Widgets/Controls/Button/Button.h"
#include "support/StageTest.h"

#include <string>

namespace GfxTest
{

/// A list that tells which buttons it shows, in their order.
template <typename ListT>
class CShownList : public ListT
{
public:
    using ListT::ListT;
    using CButton = Gfx::Widgets::CButton;

    /// Their names, with "<" and ">" for those that scroll, and a "*" behind those of selected items.
    [[nodiscard]] std::string Shown() const
    {
        return Join("",
                    [](const CButton& a_button)
                    {
                        const std::string& name = a_button.Name();
                        return (name == "ScrollBackward"  ? "<"
                                : name == "ScrollForward" ? ">"
                                                          : name) +
                               (a_button.TextureSet() == "Selected" ? "*" : "");
                    });
    }

    [[nodiscard]] std::string Places() const
    {
        return Join(" ", [](const CButton& a_button)
                    { return std::to_string(a_button.TopLeft().X()) + ',' + std::to_string(a_button.TopLeft().Y()); });
    }

    [[nodiscard]] std::string Sizes() const
    {
        return Join(" ", [](const CButton& a_button)
                    { return std::to_string(a_button.Width()) + 'x' + std::to_string(a_button.Height()); });
    }

    [[nodiscard]] Core::SharedPtr<CButton> Button(std::size_t a_index) const
    {
        return this->Children().Widgets().at(a_index).template StaticCast<CButton>();
    }

private:
    template <typename TextT>
    [[nodiscard]] std::string Join(const std::string& a_separator, TextT a_text) const
    {
        std::string joined;
        for (const WidgetPtr& child : this->Children().Widgets())
        {
            joined += (joined.empty() ? "" : a_separator) + a_text(static_cast<const CButton&>(*child));
        }
        return joined;
    }
};

} // namespace GfxTest

#include "Layout/ButtonElement.h"

#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"
#include "Gfx/Common/Alignment.h"
#include "Widgets/Controls/Button/Button.h"

#include <array>
#include <cstdio>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;

namespace
{

struct SValues
{
    bool allowHover = false;
    std::string text;
    std::string image;
    int imgWidth = 32;
    int imgHeight = 32;
    bool parseMarkup = false;
    bool remoteLockout = false;
    std::string flashTexture;
    std::string textureSet;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"allowHover", &SValues::allowHover, "whether it shows that the pointer is over it"},
    SAttribute<SValues>{"text", &SValues::text, "the text, or the key of a localised one behind Localised:"},
    SAttribute<SValues>{"image", &SValues::image, "an image in its middle: a texture element, or a file"},
    SAttribute<SValues>{"imgWidth", &SValues::imgWidth, "the image's width in pixels"},
    SAttribute<SValues>{"imgHeight", &SValues::imgHeight, "the image's height in pixels"},
    SAttribute<SValues>{"parseMarkup", &SValues::parseMarkup, "whether the text is markup"},
    SAttribute<SValues>{"remoteLockout", &SValues::remoteLockout, "whether it is deaf to remote events"},
    SAttribute<SValues>{"flashTexture", &SValues::flashTexture, "the texture element of the flashing overlay"},
    SAttribute<SValues>{"textureSet", &SValues::textureSet, "the texture set to begin with"},
};

} // namespace

CElement* CButtonElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const Core::SharedPtr<Widgets::CButton> button = CreateWidget(a_node);
    if (!button)
    {
        return nullptr;
    }
    SetWidget(button);
    InitWidget(a_node);
    Attach(a_parent, button);
    ProcessChildren(a_node);
    const std::string textureSet = ReadAttributes(s_rows, a_node).textureSet;
    if (!textureSet.empty())
    {
        std::fputs("CButtonElement::Process() Attempting to change texture set!\n", stderr);
        button->ChangeTextureSet(textureSet);
    }
    return this;
}

std::vector<SAttributeInfo> CButtonElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SNodeInfo> CButtonElement::Nodes() const
{
    SNodeInfo set{"TextureSet", "the texture elements of a named look; without all three it is left out"};
    set.attributes.push_back({"id", "text", "", "the name; required"});
    for (const char* state : {"Inactive", "Hover", "Active"})
    {
        set.nodes.push_back({state, "a texture element"});
        set.nodes.back().hasText = true;
    }
    return {FontNode(), set};
}

Core::SharedPtr<Widgets::CButton> CButtonElement::CreateWidget(const XMLNode& a_node)
{
    return Core::SharedPtr<Widgets::CButton>(
        new Widgets::CButton(Id(), X(), Y(), Width(), Height(), ReadAttributes(s_rows, a_node).allowHover));
}

void CButtonElement::InitWidget(const XMLNode& a_node)
{
    const SValues values = ReadAttributes(s_rows, a_node);
    Widgets::CButton& button = Button();
    button.ParseMarkup(values.parseMarkup);
    button.RemoteLockout(values.remoteLockout);
    if (!Visible())
    {
        button.Hide();
    }
    if (!values.text.empty())
    {
        button.Text(values.text);
    }
    if (!values.image.empty())
    {
        button.SetImage(values.image, eaCentre | eaMiddle, values.imgWidth, values.imgHeight);
    }
    if (!values.flashTexture.empty())
    {
        button.SetFlashTexture(values.flashTexture);
    }
}

void CButtonElement::ProcessChildren(const XMLNode& a_node)
{
    for (const XMLNode& child : a_node.Children())
    {
        if (child.Name() == "Events")
        {
            ProcessEvents(child);
        }
        else if (child.Name() == "TextureSet")
        {
            ProcessTextureSet(child);
        }
        else if (child.Name() == "Font")
        {
            ProcessFontOf(Button(), child);
        }
    }
}

void CButtonElement::ProcessTextureSet(const XMLNode& a_node)
{
    const std::string id = a_node.Attribute("id", "");
    if (id.empty())
    {
        Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(
            Core::Logging::elMessage, "CButtonElement", "%s",
            "A texture set was found without an id. It will not be processed");
        return;
    }
    const auto text = [&a_node](const char* a_name)
    {
        const XMLNode* const child = a_node.Child(a_name);
        return child != nullptr ? TextOf(*child) : "";
    };
    const std::string inactive = text("Inactive");
    const std::string hover = text("Hover");
    const std::string active = text("Active");
    if (!inactive.empty() && !hover.empty() && !active.empty())
    {
        Button().SetTextures(inactive, hover, active, id);
    }
}

void CButtonElement::ProcessEvents(const XMLNode& a_node)
{
    CElement::ProcessEvents(a_node);
}

Widgets::CButton& CButtonElement::Button()
{
    return static_cast<Widgets::CButton&>(*Widget());
}

} // namespace Gfx::Layout

// How Configuration/OSK.xml is read.

#include "Core/Assert.h"
#include "Core/IO/XMLDocument.h"
#include "Core/LexicalCast.h"
#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"
#include "Core/Utilities.h"
#include "Managers/Config/ConfigManager.h"
#include "Managers/Gfx/GfxManager.h"
#include "Widgets/Controls/Keyboard/OnScreenKeyboard.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace Gfx::Widgets
{

using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;

namespace
{

using SKey = COnScreenKeyboard::SKey;
using SKeyboardRow = COnScreenKeyboard::SKeyboardRow;
using SKeyboardPage = COnScreenKeyboard::SKeyboardPage;
using SKeyboardLayout = COnScreenKeyboard::SKeyboardLayout;

constexpr std::array<std::pair<const char*, int SKeyboardLayout::*>, 5> s_sizes{{
    {"keyWidth", &SKeyboardLayout::keyWidth},
    {"keyHeight", &SKeyboardLayout::keyHeight},
    {"keyBorder", &SKeyboardLayout::keyBorder},
    {"width", &SKeyboardLayout::width},
    {"height", &SKeyboardLayout::height},
}};

unsigned int ReadFlags(const std::string& a_text)
{
    std::vector<std::string> words{a_text};
    // A text without a comma is left as the one word.
    static_cast<void>(Core::Utilities::SplitString(a_text, ",", words, 1));
    const bool isNumeric = std::find(words.begin(), words.end(), "numeric") != words.end();
    return isNumeric ? COnScreenKeyboard::elfNumeric : 0U;
}

void ReadDefaults(const XMLNode& a_node, SKeyboardLayout& a_layout)
{
    for (const XMLNode& node : a_node.Children())
    {
        const std::string id = node.Attribute("id", "");
        for (const auto& [name, member] : s_sizes)
        {
            if (id == name)
            {
                const int fallback = SKeyboardLayout().*member;
                // Sums of scaled sizes stay within int.
                a_layout.*member =
                    std::clamp(Core::LexicalCast<int, std::string>(node.Attribute("value", ""), fallback),
                               -CWidget::k_longestSide, CWidget::k_longestSide);
            }
        }
    }
}

void ReadModes(const XMLNode& a_node, SKeyboardLayout& a_layout)
{
    for (const XMLNode& node : a_node.Children())
    {
        const std::string modeId = node.Attribute("id", "");
        GFX_ASSERT(!modeId.empty());
        std::vector<CNumericEditBox::SField>& fields = a_layout.modes[modeId];
        for (const XMLNode& field : node.Children())
        {
            fields.push_back(
                {field.Attribute("label", ""), Core::LexicalCast<int, std::string>(field.Attribute("length", ""), -1)});
        }
    }
}

SKey ReadKey(const XMLNode& a_node)
{
    const std::string elementId = a_node.Attribute("id", "");
    GFX_ASSERT(!elementId.empty());
    const std::string code = a_node.Attribute("code", elementId);
    const std::string shiftedCode = a_node.Attribute("shiftedCode", code);
    const auto widthScale = Core::LexicalCast<float, std::string>(a_node.Attribute("width", ""), 1.0F);
    const auto heightScale = Core::LexicalCast<float, std::string>(a_node.Attribute("height", ""), 1.0F);
    GFX_ASSERT_TEXT(widthScale >= 0.1F, "widthScale >= 0.1f");
    GFX_ASSERT_TEXT(widthScale <= 10.0F, "widthScale <= 10.0f");
    GFX_ASSERT_TEXT(heightScale >= 0.1F, "heightScale >= 0.1f");
    GFX_ASSERT_TEXT(heightScale <= 10.0F, "heightScale <= 10.0f");
    return {elementId, code, shiftedCode, widthScale, heightScale};
}

SKeyboardPage ReadPage(const XMLNode& a_node, const SKeyboardLayout& a_layout)
{
    const std::string pageId = a_node.Attribute("id", "");
    GFX_ASSERT(!pageId.empty());
    SKeyboardPage page{pageId, a_node.Attribute("shiftPressedByDefault", "No") == "Yes", {}};
    for (const XMLNode& rowNode : a_node.Children())
    {
        SKeyboardRow row{{}, rowNode.Attribute("align", "Centred") != "Left"};
        for (const XMLNode& keyNode : rowNode.Children())
        {
            row.keys.push_back(ReadKey(keyNode));
        }
        page.rows.push_back(std::move(row));
    }
    const auto rows = static_cast<std::int64_t>(page.rows.size());
    const std::int64_t requiredHeight = (rows - 1) * a_layout.keyBorder + rows * a_layout.keyHeight;
    GFX_ASSERT_TEXT(requiredHeight < StaticSingleton<Managers::CGfxManager>::ref().DisplayHeight(),
                    "requiredHeight < Gfx::Managers::CGfxManager::ref().DisplayHeight()");
    return page;
}

} // namespace

void COnScreenKeyboard::ParseConfiguration()
{
    if (!Keyboards.empty())
    {
        return;
    }
    Core::IO::XMLDocument document;
    if (!document.Parse(StaticSingleton<Managers::CConfigManager>::ref().BasePath() + "Configuration/OSK.xml"))
    {
        StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elMessage, "COnScreenKeyboard", "%s",
                                                           "Unable to load OSK.xml");
    }
    for (const XMLNode& root : document.RootNode()->Children())
    {
        for (const XMLNode& keyboard : root.Children())
        {
            const std::string keyboardId = keyboard.Attribute("id", "");
            GFX_ASSERT(!keyboardId.empty());
            SKeyboardLayout layout;
            layout.flags = ReadFlags(keyboard.Attribute("flags", ""));
            const XMLNode* const defaultsNode = keyboard.Child("Defaults");
            GFX_ASSERT_TEXT(defaultsNode != nullptr, "defaultsNode != __null");
            ReadDefaults(*defaultsNode, layout);
            if (const XMLNode* const modesNode = keyboard.Child("Modes"))
            {
                ReadModes(*modesNode, layout);
            }
            const XMLNode* const pagesNode = keyboard.Child("Pages");
            GFX_ASSERT_TEXT(pagesNode != nullptr, "pagesNode != __null");
            for (const XMLNode& page : pagesNode->Children())
            {
                layout.pages.push_back(ReadPage(page, layout));
            }
            Keyboards[keyboardId] = std::move(layout);
        }
    }
}

} // namespace Gfx::Widgets

// Layouts, with their actions: all that an input has come on the stage, and are used as somebody would use them who
// touches everything; then the steps that it may have, as support/LayoutSteps.h tells.

#include "fuzz/support/Stage.h"
#include "fuzz/support/Target.h"

#include "Core/IO/XMLDocument.h"
#include "Layout/NumericEditBoxElement.h"
#include "Managers/Layout/LayoutManager.h"
#include "Managers/Themes/ThemeManager.h"
#include "support/LayoutSteps.h"

#include <filesystem>

namespace
{

using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;
using Gfx::Managers::CLayoutManager;
using GfxFuzz::CStage;
using GfxTest::WidgetPtr;

const std::string k_file = "Layouts/Layouts.xml";

CLayoutManager& Layouts()
{
    return StaticSingleton<CLayoutManager>::ref();
}

void Load(std::string_view a_text)
{
    GfxFuzz::Data().Write(k_file, a_text);
    std::vector<std::string> errors;
    GfxFuzz::Use(Layouts().Reload(errors, true));
}

/// Reads and sets all properties of the widgets that a node and those in it have made.
void UseProperties(const XMLNode& a_node, const std::string& a_path)
{
    const std::string path = a_path + a_node.Attribute("id", "");
    if (const WidgetPtr widget = CStage::Widgets().FindWidget(path, nullptr))
    {
        for (const Gfx::Widgets::SPropertyInfo& property : widget->Properties())
        {
            const std::string name(property.name);
            widget->SetProperty(name, widget->GetProperty(name, ""));
        }
    }
    for (const XMLNode& child : a_node.Children())
    {
        UseProperties(child, path + ':');
    }
}

void UseLayout(const XMLNode& a_layout)
{
    Layouts().ApplyLayout(a_layout.Attribute("id", ""));
    CStage::Paint();
    for (const XMLNode& element : a_layout.Children())
    {
        UseProperties(element, "");
    }
    CStage::TouchAll();
    for (const unsigned int key : {unsigned{'1'}, unsigned{'x'}, 0xff08U, 0xff0dU})
    {
        CStage::Widgets().KeyboardEvent(key);
    }
}

/// Ends an input, however it comes to its end.
class CCleaner
{
public:
    explicit CCleaner(const XMLNode& a_document) : m_document(a_document) {}
    ~CCleaner()
    {
        CStage::Clear();
        Load("<Layouts/>");
        CStage::Clear();
        ClearFlags(m_document);
        CStage::Iterate();
    }

private:
    static void ClearFlags(const XMLNode& a_node)
    {
        for (const auto& [name, value] : a_node.Attributes())
        {
            if (!Layouts().GetFlag(value).empty())
            {
                Layouts().SetFlag(value, "");
            }
        }
        for (const XMLNode& child : a_node.Children())
        {
            ClearFlags(child);
        }
    }

    const XMLNode& m_document;
};

} // namespace

void GfxFuzz::SetUp()
{
    for (const char* folder : {"Configuration", "TextureMaps", "Models"})
    {
        std::filesystem::create_directory_symlink(std::string(GFX_FUZZ_DATA) + folder, Data().Path() + folder);
    }
    Data().Write(k_file, "<Layouts/>");
    Data().Write("Localisation/de.xml", R"(<Localisation language="de"><Text id="a">b</Text></Localisation>)");
    CStage::Make(Data().Path());
    static CLayoutManager::ElementConstructor::Function s_constructor(
        &Gfx::Managers::ElementBuilder<Gfx::Layout::CNumericEditBoxElement>);
    Layouts().RegisterElementConstructor("NumericEditBox", &s_constructor);
}

void GfxFuzz::Try(std::string_view a_input)
{
    Core::IO::XMLDocument document;
    if (!document.ParseText(a_input, k_file))
    {
        return;
    }
    const CCleaner cleaner(*document.RootNode());
    Load(a_input);
    GfxTest::CLayoutSteps steps;
    if (const XMLNode* const layouts = document.Section("Layouts"))
    {
        for (const XMLNode& layout : layouts->Children())
        {
            UseLayout(layout);
        }
    }
    if (const XMLNode* const list = document.Section("Steps"))
    {
        for (const XMLNode& step : list->Children())
        {
            Use(steps.Do(step));
        }
    }
    // As somebody who writes the file would have it made anew.
    Load(a_input);
    CStage::Advance(1000);
    CStage::Widgets().Idle();
    CStage::Widgets().UpdateStyle();
    CStage::Widgets().UpdateLocalisation();
    CStage::Widgets().GarbageCollect();
    CStage::Iterate();
    for (const WidgetPtr& widget : CStage::Widgets().TopLevelWidgets())
    {
        Use(widget->GetWidgetInfo());
    }
    CStage::Paint();
}

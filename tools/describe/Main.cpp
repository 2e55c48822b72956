// Prints, as XML, what the toolkit says of itself: the kinds of elements, the actions, the controls' properties and the
// configuration's keys. scripts/docs makes the reference and the schemas of it. It needs a display.

#include <Gfx/Gfx.h>
#include <glib.h>

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace
{

using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;
using namespace Gfx::Layout;
using namespace Gfx::Managers;
using Gfx::Widgets::CWidget;

struct SKey
{
    std::string defaultText;
    bool isNumber;
};

std::map<std::string, SKey> s_keys;

std::string Escaped(std::string_view a_text)
{
    const std::unique_ptr<char, decltype(&g_free)> escaped(
        g_markup_escape_text(a_text.data(), static_cast<gssize>(a_text.size())), g_free);
    return escaped.get();
}

/// Prints a start tag; the attributes are pairs of name and value.
void Tag(const char* a_name, std::initializer_list<std::pair<const char*, std::string_view>> a_attributes,
         bool a_isEmpty)
{
    std::printf("<%s", a_name);
    for (const auto& [name, value] : a_attributes)
    {
        std::printf(" %s=\"%s\"", name, Escaped(value).c_str());
    }
    std::puts(a_isEmpty ? "/>" : ">");
}

const char* YesNo(bool a_value)
{
    return a_value ? "yes" : "no";
}

void Print(const std::vector<SAttributeInfo>& a_attributes)
{
    for (const SAttributeInfo& attribute : a_attributes)
    {
        Tag("attribute",
            {{"name", attribute.name},
             {"type", attribute.type},
             {"default", attribute.defaultText},
             {"description", attribute.description}},
            true);
    }
}

void Print(const char* a_tag, const SNodeInfo& a_node)
{
    Tag(a_tag,
        {{"name", a_node.name},
         {"description", a_node.description},
         {"text", YesNo(a_node.hasText)},
         {"elements", YesNo(a_node.takesElements)}},
        false);
    Print(a_node.attributes);
    for (const SEventInfo& event : a_node.events)
    {
        Tag("event", {{"name", event.name}, {"description", event.description}}, true);
    }
    for (const SNodeInfo& node : a_node.nodes)
    {
        Print("node", node);
    }
    std::printf("</%s>\n", a_tag);
}

void PrintActions()
{
    for (const SActionInfo& action : CElement::ActionWords())
    {
        Tag("action", {{"name", action.name}, {"description", action.description}}, false);
        Print(action.attributes);
        std::puts("</action>");
    }
}

void PrintProperties(CWidget& a_widget)
{
    std::map<std::string, Gfx::Widgets::SPropertyInfo> properties;
    for (const Gfx::Widgets::SPropertyInfo& property : a_widget.Properties())
    {
        properties.insert_or_assign(std::string(property.name), property);
    }
    Tag("control", {{"name", a_widget.Name()}}, false);
    for (const auto& [name, property] : properties)
    {
        Tag("property", {{"name", name}, {"read", YesNo(property.isReadable)}, {"write", YesNo(property.isWritable)}},
            true);
    }
    std::puts("</control>");
}

XMLNode MakeNode(const std::string& a_type)
{
    return {a_type,
            {},
            {{"id", a_type}, {"x", "0"}, {"y", "0"}, {"width", "200"}, {"height", "100"}, {"layout", "Describe"}},
            {}};
}

/// One widget of each kind of control.
std::vector<Core::SharedPtr<CWidget>> MakeControls()
{
    using namespace Gfx::Widgets;
    std::vector<Core::SharedPtr<CWidget>> controls;
    controls.emplace_back(new CWidget("Widget", "Widget", 0, 0, 10, 10, false));
    // The elements live to the end, since the widgets may call into them.
    static std::vector<std::unique_ptr<CElement>> s_elements;
    for (const SStandardElement& element : StandardElements())
    {
        s_elements.push_back(element.make());
        s_elements.back()->Process(nullptr, MakeNode(element.type));
        if (const auto widget = s_elements.back()->Widget())
        {
            controls.push_back(widget);
        }
    }
    controls.emplace_back(new CRadioButton("RadioButton", 0, 0, 200, 100, ""));
    // Where texts are marked, one that is localised and one that isn't read different keys.
    for (const char* text : {"Localised:text", "text"})
    {
        const Core::SharedPtr<CWidget> label(new CLabel("Label", 0, 0, 200, 100, false, false, false, text, true));
        StaticSingleton<CWidgetManager>::ref().AddWidget(label);
        static_cast<void>(StaticSingleton<CGfxManager>::ref().TrueScreenShot());
    }
    controls.emplace_back(new CMessageBox("MessageBox", 0, 0, 400, 300, "title", "text", "1", "2", "3"));
    controls.emplace_back(new CNumericEditBox("NumericEditBox", 0, 0, 200, 40, {{"", 3}}));
    controls.emplace_back(new CWizard("Wizard"));
    return controls;
}

} // namespace

int main(int a_argc, char** a_argv)
{
    if (a_argc != 2)
    {
        std::fprintf(stderr, "usage: %s DATA_DIRECTORY/\n", a_argv[0]);
        return 2;
    }
    CConfigManager& config = StaticSingleton<CConfigManager>::ref();
    config.SetKeyObserver(
        [](const std::string& a_path, const std::string& a_default, bool a_isNumber) {
            s_keys.try_emplace(a_path, SKey{a_default, a_isNumber});
        });
    if (!StaticSingleton<CGfxManager>::ref().Setup(a_argv[1], "describe", {0, 0}, 800, 480, 0, nullptr,
                                                   Gfx::Colours::Black))
    {
        return 1;
    }
    std::puts("<toolkit>");
    for (const SStandardElement& element : StandardElements())
    {
        Print("element", element.make()->Describe(element.type, element.description));
    }
    Print("element",
          CNumericEditBoxElement().Describe(
              "NumericEditBox",
              "fields of a text, with labels between them, such as an address; a program has to register it"));
    PrintActions();
    for (const Core::SharedPtr<CWidget>& control : MakeControls())
    {
        PrintProperties(*control);
    }
    for (const auto& [path, key] : s_keys)
    {
        Tag("key", {{"path", path}, {"type", key.isNumber ? "number" : "text"}, {"default", key.defaultText}}, true);
    }
    std::puts("</toolkit>");
    return 0;
}

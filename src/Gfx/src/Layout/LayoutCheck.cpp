#include "Layout/LayoutCheck.h"

#include "Core/IO/XMLDocument.h"
#include "Core/LexicalCast.h"
#include "Core/StaticSingleton.h"
#include "Layout/Actions/FlowActions.h"
#include "Layout/Element.h"
#include "Managers/Layout/LayoutManager.h"

#include <algorithm>
#include <filesystem>
#include <list>
#include <set>
#include <utility>

namespace Gfx::Layout
{

using Core::IO::XMLNode;

namespace
{

template <typename T>
const T* FindNamed(const std::vector<T>& a_list, const std::string& a_name)
{
    const auto found =
        std::find_if(a_list.begin(), a_list.end(), [&a_name](const T& a_entry) { return a_entry.name == a_name; });
    return found != a_list.end() ? &*found : nullptr;
}

bool IsInteger(const std::string& a_text)
{
    // Only what isn't one gives the fallback back, whatever it is.
    return Core::LexicalCast<int, std::string>(a_text, 0) == Core::LexicalCast<int, std::string>(a_text, 1);
}

class CChecker
{
public:
    CChecker()
    {
        for (const Managers::SStandardElement& element : Managers::StandardElements())
        {
            m_elements.push_back(element.make()->Describe(element.type, element.description));
        }
        for (std::string& type : Core::Patterns::StaticSingleton<Managers::CLayoutManager>::ref().ElementTypes())
        {
            m_registered.insert(std::move(type));
        }
    }

    void Read(const std::string& a_path)
    {
        Core::IO::XMLDocument& document = m_documents.emplace_back();
        if (!document.Parse(a_path))
        {
            m_findings.push_back(document.ErrorText());
            return;
        }
        m_file = a_path;
        const XMLNode* const layouts = document.Section("Layouts");
        if (layouts == nullptr)
        {
            m_findings.push_back(a_path + ":1:1: there is no Layouts node");
            return;
        }
        for (const XMLNode& layout : layouts->Children())
        {
            const std::string id = layout.Attribute("id", "");
            if (layout.Name() != "Layout")
            {
                Report(layout, "a " + layout.Name() + " is no Layout");
            }
            else if (id.empty())
            {
                Report(layout, "a Layout needs an id");
            }
            else if (!m_ids.insert(id).second)
            {
                Report(layout, "there is another layout " + id);
            }
            else
            {
                m_layouts.emplace_back(a_path, &layout);
            }
        }
    }

    /// Knows which layouts of the on-screen keyboard there are.
    void ReadKeyboards(const std::string& a_path)
    {
        Core::IO::XMLDocument document;
        if (std::filesystem::exists(a_path) && document.Parse(a_path))
        {
            for (const XMLNode& root : document.RootNode()->Children())
            {
                for (const XMLNode& keyboard : root.Children())
                {
                    m_keyboards.insert(keyboard.Attribute("id", ""));
                }
            }
        }
    }

    std::vector<std::string> Check()
    {
        for (const auto& [file, layout] : m_layouts)
        {
            m_file = file;
            CheckElements(*layout, true);
        }
        return std::move(m_findings);
    }

private:
    void Report(const XMLNode& a_node, const std::string& a_text)
    {
        m_findings.push_back(m_file + ':' + std::to_string(a_node.Line()) + ':' + std::to_string(a_node.Column()) +
                             ": " + a_text);
    }

    void CheckElements(const XMLNode& a_parent, bool a_isTopLevel)
    {
        std::set<std::string> ids;
        for (const XMLNode& node : a_parent.Children())
        {
            if (!a_isTopLevel && node.Name() == "Events")
            {
                continue;
            }
            const std::string id = node.Attribute("id", "");
            if (!id.empty() && !ids.insert(id).second)
            {
                Report(node, "there is another element " + id + " beside it");
            }
            if (m_registered.count(node.Name()) == 0)
            {
                Report(node, "no element is called " + node.Name());
            }
            else if (a_isTopLevel && node.Name() == "RadioGroup")
            {
                Report(node, "a RadioGroup needs a container around it");
            }
            else if (!a_isTopLevel && (node.Name() == "Window" || node.Name() == "Keyboard"))
            {
                Report(node, "a " + node.Name() + " can't be in another element");
            }
            else if (const SNodeInfo* element = FindNamed(m_elements, node.Name()))
            {
                const std::string keyboard = node.Attribute("layout", "");
                if (node.Name() == "Keyboard" && m_keyboards.count(keyboard) == 0)
                {
                    Report(node, "there is no keyboard layout \"" + keyboard + '"');
                }
                CheckNode(node, *element);
                if (node.Name() == "ProgressBar")
                {
                    CheckRange(node, *element);
                }
            }
        }
    }

    /// A bar whose value lies outside of its bounds would end the process.
    void CheckRange(const XMLNode& a_node, const SNodeInfo& a_info)
    {
        const auto number = [&](const char* a_name)
        {
            const SAttributeInfo* const attribute = FindNamed(a_info.attributes, a_name);
            const std::string otherwise = attribute != nullptr ? attribute->defaultText : "";
            return Core::LexicalCast<int, std::string>(a_node.Attribute(a_name, otherwise),
                                                       Core::LexicalCast<int, std::string>(otherwise, 0));
        };
        const int current = number("current");
        if (current < number("min") || current > number("max"))
        {
            Report(a_node, "current lies outside of min and max");
        }
    }

    void CheckNode(const XMLNode& a_node, const SNodeInfo& a_info)
    {
        CheckAttributes(a_node, a_info.attributes);
        for (const char* required : {"id", "x", "y"})
        {
            const SAttributeInfo* const attribute = FindNamed(a_info.attributes, required);
            if (attribute != nullptr && a_node.Attribute(required, "").empty())
            {
                Report(a_node,
                       a_node.Name() + " needs " + (attribute->type == "text" ? "an " : "a place: ") + required);
            }
            else if (attribute != nullptr && attribute->type == "integer" &&
                     Core::LexicalCast<int, std::string>(a_node.Attribute(required, ""), 0) < 0)
            {
                Report(a_node, std::string(required) + " is negative");
            }
        }
        if (a_info.takesElements)
        {
            CheckElements(a_node, false);
        }
        for (const XMLNode& child : a_node.Children())
        {
            if (child.Name() == "Events" && !a_info.events.empty())
            {
                CheckEvents(child, a_info);
            }
            else if (const SNodeInfo* part = FindNamed(a_info.nodes, child.Name()))
            {
                CheckNode(child, *part);
            }
            else if (!a_info.takesElements)
            {
                Report(child, a_node.Name() + " has no use for " + child.Name());
            }
        }
    }

    void CheckAttributes(const XMLNode& a_node, const std::vector<SAttributeInfo>& a_known)
    {
        for (const auto& [name, value] : a_node.Attributes())
        {
            const SAttributeInfo* const attribute = FindNamed(a_known, name);
            const std::string text = name + "=\"" + value + '"';
            if (attribute == nullptr)
            {
                Report(a_node, a_node.Name() + " has no attribute " + name);
            }
            else if (attribute->type == "integer" && !IsInteger(value))
            {
                Report(a_node, text + " is no integer");
            }
            else if (attribute->type == "boolean" && value != "True" && value != "False")
            {
                Report(a_node, text + " is neither True nor False");
            }
        }
    }

    void CheckEvents(const XMLNode& a_events, const SNodeInfo& a_element)
    {
        for (const XMLNode& event : a_events.Children())
        {
            if (FindNamed(a_element.events, event.Name()) == nullptr)
            {
                Report(event, a_element.name + " has no event " + event.Name());
            }
            CheckActions(event);
        }
    }

    void CheckActions(const XMLNode& a_list)
    {
        for (const XMLNode& node : a_list.Children())
        {
            const SActionInfo* const action = FindNamed(m_actions, node.Name());
            if (action == nullptr)
            {
                Report(node, "no action is called " + node.Name());
                continue;
            }
            CheckAttributes(node, action->attributes);
            const std::string id = node.Attribute("id", "");
            if (node.Name() == "Condition")
            {
                const std::string type = node.Attribute("type", "");
                if (!Actions::CCondition::IsOperator(type))
                {
                    Report(node, "no operator is called \"" + type + '"');
                }
                CheckActions(node);
            }
            else if (node.Name() == "ShowMessageBox")
            {
                CheckButtons(node);
            }
            else if (node.Name() == "ActivateLayout" && m_ids.count(id) == 0)
            {
                Report(node, "there is no layout \"" + id + '"');
            }
        }
    }

    void CheckButtons(const XMLNode& a_box)
    {
        for (const XMLNode& button : a_box.Children())
        {
            if (button.Name() != "Button1" && button.Name() != "Button2" && button.Name() != "Button3")
            {
                Report(button, "ShowMessageBox has no use for " + button.Name());
            }
            CheckActions(button);
        }
    }

    std::vector<SNodeInfo> m_elements;
    std::vector<SActionInfo> m_actions = CElement::ActionWords();
    std::set<std::string> m_registered;
    std::list<Core::IO::XMLDocument> m_documents;
    /// Those of the documents, with their files.
    std::vector<std::pair<std::string, const XMLNode*>> m_layouts;
    std::set<std::string> m_ids;
    std::set<std::string> m_keyboards;
    std::string m_file;
    std::vector<std::string> m_findings;
};

} // namespace

std::vector<std::string> CheckLayouts(const std::string& a_dataPath)
{
    std::vector<std::string> files;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(a_dataPath + "Layouts", error), end; !error && entry != end;
         entry.increment(error))
    {
        if (entry->path().string().ends_with(".xml"))
        {
            files.push_back(entry->path());
        }
    }
    std::sort(files.begin(), files.end());
    CChecker checker;
    checker.ReadKeyboards(a_dataPath + "Configuration/OSK.xml");
    for (const std::string& file : files)
    {
        checker.Read(file);
    }
    return checker.Check();
}

} // namespace Gfx::Layout

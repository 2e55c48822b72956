#include "Managers/Layout/LayoutManager.h"

#include "Core/IO/XMLDocument.h"
#include "Core/Localisation/Manager.h"
#include "Core/Logging/Logger.h"
#include "Managers/Widgets/WidgetManager.h"

#include <dirent.h>

#include <cstdio>
#include <utility>

template class Core::Patterns::StaticSingleton<Gfx::Managers::CLayoutManager>;

namespace Gfx::Managers
{

using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;

namespace
{

template <typename... Args>
void Report(Core::Logging::ELogEventLevel a_level, const std::string& a_source, const std::string& a_format,
            const Args&... a_arguments)
{
    StaticSingleton<Core::Logging::CLogger>::ref().Log(a_level, a_source, a_format, a_arguments...);
}

void ReportUnknown(const std::string& a_id)
{
    std::fprintf(stderr, "CLayoutManager::ApplyLayout: could not find layout %s\n", a_id.c_str());
}

bool IsLayoutFile(const std::string& a_name)
{
    const std::size_t dot = a_name.rfind('.');
    return dot != std::string::npos && a_name.substr(dot + 1) == "xml";
}

/// A node with its children, but without theirs.
XMLNode Outline(const XMLNode& a_node)
{
    std::list<XMLNode> children;
    for (const XMLNode& child : a_node.Children())
    {
        children.emplace_back(child.Name(), child.Data(), child.Attributes(), std::list<XMLNode>(), child.Line(),
                              child.Column());
    }
    return {a_node.Name(), a_node.Data(), a_node.Attributes(), std::move(children), a_node.Line(), a_node.Column()};
}

} // namespace

void detail::AbandonElement(std::unique_ptr<Layout::CElement> a_element)
{
    static std::vector<std::unique_ptr<Layout::CElement>> s_abandoned;
    s_abandoned.push_back(std::move(a_element));
}

CLayoutManager::CLayoutManager()
{
    for (const SStandardElement& element : StandardElements())
    {
        m_standardConstructors.push_back(std::make_unique<ElementConstructor::Function>(element.build));
        RegisterElementConstructor(element.type, m_standardConstructors.back().get());
    }
}

void CLayoutManager::Initialise(const std::string& a_dataPath)
{
    m_directory = a_dataPath + "Layouts/";
    ReadDirectory(m_rawLayouts, nullptr);
}

bool CLayoutManager::ReadDirectory(RawLayouts& a_layouts, std::vector<std::string>* a_errors) const
{
    DIR* const directory = opendir(m_directory.c_str());
    bool isWhole = true;
    while (const dirent* entry = directory != nullptr ? readdir(directory) : nullptr)
    {
        if (IsLayoutFile(entry->d_name))
        {
            isWhole = ReadFile(m_directory + entry->d_name, a_layouts, a_errors) && isWhole;
        }
    }
    if (directory != nullptr)
    {
        closedir(directory);
    }
    return isWhole;
}

void CLayoutManager::ParseLayoutFile(const std::string& a_path)
{
    ReadFile(a_path, m_rawLayouts, nullptr);
}

bool CLayoutManager::ReadFile(const std::string& a_path, RawLayouts& a_layouts, std::vector<std::string>* a_errors)
{
    Core::IO::XMLDocument document;
    if (!document.Parse(a_path))
    {
        if (a_errors != nullptr)
        {
            a_errors->push_back(document.ErrorText());
        }
        return false;
    }
    if (XMLNode* const layouts = document.Section("Layouts"))
    {
        for (XMLNode& child : layouts->TakeChildren())
        {
            if (child.Name() == "Layout")
            {
                const std::string id = child.Attribute("id", "");
                a_layouts[id] = SRawLayout(std::move(child));
            }
        }
    }
    return true;
}

CLayoutManager::SRawLayout::SRawLayout(XMLNode a_node)
    : contentHash(a_node.ContentHash()), node(std::make_shared<const XMLNode>(std::move(a_node)))
{
}

void CLayoutManager::ParseRawLayout(const SRawLayout& a_layout)
{
    // Held, since an element of the application's may read files anew.
    const NodePtr node = a_layout.node;
    ParseLayoutNode(*node);
    const auto raw = m_rawLayouts.find(node->Attribute("id", ""));
    if (raw != m_rawLayouts.end() && raw->second.node == node && m_parsedLayouts.count(raw->first) != 0)
    {
        raw->second.node = std::make_shared<const XMLNode>(Outline(*node));
    }
}

void CLayoutManager::ParseLayoutNode(const XMLNode& a_layout)
{
    const std::string id = a_layout.Attribute("id", "");
    if (id.empty())
    {
        Report(Core::Logging::elMessage, "CLayoutManager",
               "A layout node as encountered without an id. This is invalid");
        return;
    }
    Elements elements;
    for (const XMLNode& child : a_layout.Children())
    {
        ElementConstructor::Signature* const constructor = FindConstructor(child.Name());
        if (constructor == nullptr)
        {
            Report(Core::Logging::elSkipped, "CLayoutManager",
                   "A processor could not be found for element of type %s in layout %s", child.Name(), id);
            continue;
        }
        elements.emplace_back(constructor->Execute(nullptr, child));
    }
    Elements& parsed = m_parsedLayouts[id];
    if (!parsed.empty())
    {
        m_formerElements.push_back(std::move(parsed));
    }
    parsed = std::move(elements);
}

const CLayoutManager::Elements* CLayoutManager::FindOrParse(const std::string& a_id, bool a_report)
{
    auto parsed = m_parsedLayouts.find(a_id);
    if (parsed == m_parsedLayouts.end())
    {
        const auto raw = m_rawLayouts.find(a_id);
        if (raw == m_rawLayouts.end())
        {
            return nullptr;
        }
        if (a_report)
        {
            Report(Core::Logging::elMessage, "Gfx", "CLayoutManager::ApplyLayout parsing layout");
        }
        ParseRawLayout(raw->second);
        if (a_report)
        {
            Report(Core::Logging::elMessage, "Gfx", "CLayoutManager::ApplyLayout layout parsed");
        }
        parsed = m_parsedLayouts.find(a_id);
    }
    return parsed != m_parsedLayouts.end() ? &parsed->second : nullptr;
}

void CLayoutManager::FollowLanguage(const std::string& a_id, Elements a_elements)
{
    const Core::Localisation::CManager* const localisation = Core::Localisation::CManager::Instance();
    const std::string language = localisation != nullptr ? localisation->Language() : "";
    if (std::exchange(m_languages.try_emplace(a_id, language).first->second, language) == language)
    {
        return;
    }
    for (const Layout::CElement::ElementPtr& element : a_elements)
    {
        if (const WidgetPtr widget = element ? element->Widget() : WidgetPtr())
        {
            widget->UpdateLocalisedText();
        }
    }
}

void CLayoutManager::ApplyLayout(const std::string& a_id)
{
    const Elements* const found = FindOrParse(a_id, true);
    if (found == nullptr)
    {
        ReportUnknown(a_id);
        return;
    }
    m_appliedLayouts.insert(a_id);
    // What becomes visible may run actions.
    const Elements elements = *found;
    FollowLanguage(a_id, elements);
    for (const Layout::CElement::ElementPtr& element : elements)
    {
        if (element)
        {
            // A RadioGroup has none, which the widget manager reports: it belongs in a container.
            StaticSingleton<CWidgetManager>::ref().AddWidget(element->Widget());
        }
    }
}

std::list<CLayoutManager::WidgetPtr> CLayoutManager::RetrieveLayout(const std::string& a_id)
{
    std::list<WidgetPtr> widgets;
    if (const Elements* found = FindOrParse(a_id, false))
    {
        const Elements elements = *found;
        FollowLanguage(a_id, elements);
        for (const Layout::CElement::ElementPtr& element : elements)
        {
            if (const WidgetPtr widget = element ? element->Widget() : WidgetPtr())
            {
                widgets.push_back(widget);
            }
        }
    }
    return widgets;
}

bool CLayoutManager::ProcessChild(Layout::CElement* a_parent, const XMLNode& a_node)
{
    ElementConstructor::Signature* const constructor = FindConstructor(a_node.Name());
    if (constructor == nullptr)
    {
        Report(Core::Logging::elSkipped, "CLayoutManager", "A processor could not be found for element of type %s",
               a_node.Name());
        return false;
    }
    const Layout::CElement::ElementPtr element(constructor->Execute(a_parent, a_node));
    if (a_parent != nullptr)
    {
        a_parent->AddChild(element);
    }
    return true;
}

CLayoutManager::ElementConstructor::Signature* CLayoutManager::FindConstructor(const std::string& a_type) const
{
    const auto constructor = m_constructors.find(a_type);
    return constructor != m_constructors.end() ? constructor->second : nullptr;
}

void CLayoutManager::RegisterElementConstructor(const std::string& a_type, ElementConstructor::Signature* a_constructor)
{
    m_constructors[a_type] = a_constructor;
}

void CLayoutManager::SetFlag(const std::string& a_name, const std::string& a_value)
{
    m_flags[a_name] = a_value;
}

std::string CLayoutManager::GetFlag(const std::string& a_name) const
{
    const auto flag = m_flags.find(a_name);
    return flag != m_flags.end() ? flag->second : "";
}

void CLayoutManager::AddNotificationHandler(const std::string& a_name, NotificationHandler* a_handler)
{
    m_notificationHandlers[a_name] = a_handler;
}

void CLayoutManager::RemoveNotificationHandler(const std::string& a_name)
{
    m_notificationHandlers.erase(a_name);
}

bool CLayoutManager::PostNotification(const std::string& a_name, const std::string& a_parameter, WidgetPtr a_widget)
{
    const auto handler = m_notificationHandlers.find(a_name);
    return handler == m_notificationHandlers.end() || handler->second == nullptr ||
           handler->second->Execute(std::move(a_widget), a_name, a_parameter);
}

std::vector<std::string> CLayoutManager::LayoutIds() const
{
    std::vector<std::string> ids;
    for (const auto& [id, node] : m_rawLayouts)
    {
        ids.push_back(id);
    }
    return ids;
}

std::vector<std::string> CLayoutManager::ElementTypes() const
{
    std::vector<std::string> types;
    for (const auto& [type, constructor] : m_constructors)
    {
        types.push_back(type);
    }
    return types;
}

} // namespace Gfx::Managers

#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/IO/XMLNode.h"
#include "Core/SharedPtr.h"
#include "Core/StaticSingleton.h"
#include "Layout/Element.h"
#include "Widgets/Widget.h"

#include <cstddef>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Gfx::Managers
{

/// Screens from files: the layouts in the XML files of the folder Layouts below the data directory, each a list of
/// widgets with their events and actions.
///
/// \code{.xml}
/// <Layouts>
///   <Layout id="Main">
///     <Button id="Start" x="20" y="20" width="160" height="50" text="Start">
///       <Events><Click><ActivateLayout id="Work"/></Click></Events>
///     </Button>
///   </Layout>
/// </Layouts>
/// \endcode
///
/// A layout's widgets are made when it is first used, and kept, with whatever state they come to have. Of layouts with
/// the same id the one that is read last counts.
class GFX_API CLayoutManager
{
public:
    using WidgetPtr = Core::SharedPtr<Widgets::CWidget>;
    using ElementConstructor = Core::Functor<Layout::CElement*, Layout::CElement*, const Core::IO::XMLNode&>;
    using NotificationHandler =
        Core::Functor<bool, Core::SharedPtr<Widgets::CWidget>, const std::string&, const std::string&>::Signature;

    /// Knows the toolkit's own kinds of elements.
    CLayoutManager();
    CLayoutManager(const CLayoutManager&) = delete;
    CLayoutManager& operator=(const CLayoutManager&) = delete;

    /// Reads the files; a_dataPath is the data directory, with a separator at its end. What can't be read adds nothing,
    /// silently but for the line of a file that is no XML.
    void Initialise(const std::string& a_dataPath);

    /// Adds the layouts of a file.
    void ParseLayoutFile(const std::string& a_path);

    /// Makes the widgets of a "Layout" node.
    void ParseLayoutNode(const Core::IO::XMLNode& a_layout);

    /// Puts a layout's widgets on the screen, over what is there.
    void ApplyLayout(const std::string& a_id);

    /// A layout's widgets, for the caller to put somewhere; empty if there is no such layout.
    [[nodiscard]] std::list<WidgetPtr> RetrieveLayout(const std::string& a_id);

    /// Reads the directory again, for those who write it. Layouts that have changed, or all of them with a_remake, are
    /// made anew; what was shown of them is shown in the same place, with its state lost but for the visibility of
    /// top-level widgets, and their former widgets are destroyed. Flags and all other layouts stay. If a file can't be
    /// read, a_errors gets a line for each that says where the fault is, everything stays, and the answer is false.
    ///
    /// Not for handlers and actions to call. Pointers to widgets within a former layout must not be kept.
    [[nodiscard]] bool Reload(std::vector<std::string>& a_errors, bool a_remake);

    /// Makes an element within another one. For elements.
    bool ProcessChild(Layout::CElement* a_parent, const Core::IO::XMLNode& a_node);

    /// Adds a kind of element, or replaces it for layouts that are made from now on. a_constructor is never freed, and
    /// has to live to the end of the process.
    void RegisterElementConstructor(const std::string& a_type, ElementConstructor::Signature* a_constructor);

    /// Flags are named texts that layouts read and set; they belong to no layout.
    void SetFlag(const std::string& a_name, const std::string& a_value);

    /// Empty for a flag that was never set.
    [[nodiscard]] std::string GetFlag(const std::string& a_name) const;

    /// What the "Notification" action of a_name calls: with the element's widget, the name and the parameter; false
    /// ends the list of actions. a_handler stays the caller's.
    void AddNotificationHandler(const std::string& a_name, NotificationHandler* a_handler);
    void RemoveNotificationHandler(const std::string& a_name);

    /// The handler's answer; true if there is none of that name.
    bool PostNotification(const std::string& a_name, const std::string& a_parameter, WidgetPtr a_widget);

    /// The ids of all layouts that were read, sorted, and the words of all kinds of elements.
    [[nodiscard]] std::vector<std::string> LayoutIds() const;
    [[nodiscard]] std::vector<std::string> ElementTypes() const;

private:
    using Elements = std::vector<Layout::CElement::ElementPtr>;
    using NodePtr = std::shared_ptr<const Core::IO::XMLNode>;

    /// A "Layout" node of a file.
    struct SRawLayout
    {
        SRawLayout() = default;
        explicit SRawLayout(Core::IO::XMLNode a_node);

        std::size_t contentHash = 0;
        /// Once the layout's elements are made, of its children no more than what is directly in them.
        NodePtr node = std::make_shared<const Core::IO::XMLNode>();
    };
    using RawLayouts = std::map<std::string, SRawLayout>;

    /// Adds the layouts of a file, or of all files, to a table; false, with a line of why, for what is no XML.
    static bool ReadFile(const std::string& a_path, RawLayouts& a_layouts, std::vector<std::string>* a_errors);
    bool ReadDirectory(RawLayouts& a_layouts, std::vector<std::string>* a_errors) const;

    /// Makes the widgets of a layout that was read.
    void ParseRawLayout(const SRawLayout& a_layout);

    /// Replaces what is shown of a layout that has changed.
    void Remake(const Core::IO::XMLNode& a_before, const Elements& a_elements);
    void ReleaseFormerElements();

    /// The elements of a layout, made now if they have not been; null if there is no such layout.
    const Elements* FindOrParse(const std::string& a_id, bool a_report);
    /// Tells widgets that weren't on the screen of a change of language.
    void FollowLanguage(const std::string& a_id, Elements a_elements);
    [[nodiscard]] ElementConstructor::Signature* FindConstructor(const std::string& a_type) const;

    RawLayouts m_rawLayouts;
    std::string m_directory;
    std::map<std::string, ElementConstructor::Signature*> m_constructors;
    /// The toolkit's own among them.
    std::vector<std::unique_ptr<ElementConstructor::Signature>> m_standardConstructors;
    std::map<std::string, Elements> m_parsedLayouts;
    std::set<std::string> m_appliedLayouts;
    /// In which each parsed layout's texts are.
    std::map<std::string, std::string> m_languages;
    /// Those of replaced layouts, which something may still call.
    std::vector<Elements> m_formerElements;
    std::map<std::string, NotificationHandler*> m_notificationHandlers;
    std::map<std::string, std::string> m_flags;
};

namespace detail
{

/// Keeps an element that has failed, since something may refer to it.
GFX_API void AbandonElement(std::unique_ptr<Layout::CElement> a_element);

} // namespace detail

/// Makes an element of kind T for a node; null if that fails.
template <typename T>
Layout::CElement* ElementBuilder(Layout::CElement* a_parent, const Core::IO::XMLNode& a_node)
{
    auto element = std::make_unique<T>();
    Layout::CElement* const result = element->Process(a_parent, a_node);
    if (result == nullptr)
    {
        detail::AbandonElement(std::move(element));
        return nullptr;
    }
    static_cast<void>(element.release());
    return result;
}

/// One of the toolkit's own kinds of elements.
struct SStandardElement
{
    const char* type;
    const char* description;
    Layout::CElement* (*build)(Layout::CElement* a_parent, const Core::IO::XMLNode& a_node);
    /// An element that nothing was read into, to ask for its attributes and events.
    std::unique_ptr<Layout::CElement> (*make)();
};

/// All of them, in the order of their registration.
[[nodiscard]] GFX_API const std::vector<SStandardElement>& StandardElements();

} // namespace Gfx::Managers

extern template class GFX_API Core::Patterns::StaticSingleton<Gfx::Managers::CLayoutManager>;
